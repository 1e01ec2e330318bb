# Headers that most sources include, parsed once for each target rather than for each source, as they take most of the
# compile time. A source still includes what it uses; the linter runs without these.
option(VELUMORA_PRECOMPILED_HEADERS "Parse the common headers once for each target" ON)

set(VELUMORA_CORE_HEADERS
    <QDate> <QList> <QString> <QStringList>
    <algorithm> <chrono> <filesystem> <functional> <memory> <optional> <string> <string_view> <utility> <vector>)
set(VELUMORA_APP_HEADERS ${VELUMORA_CORE_HEADERS}
    <QApplication> <QDialog> <QKeyEvent> <QLabel> <QLineEdit> <QMainWindow> <QMenu>
    <QPainter> <QPlainTextEdit> <QPointer> <QPushButton> <QScrollBar> <QTimer> <QUrl> <QWidget>)

# Lets ccache tell which of them a source was compiled with.
if(VELUMORA_PRECOMPILED_HEADERS AND CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    target_compile_options(velumora-compile INTERFACE -fpch-preprocess)
elseif(VELUMORA_PRECOMPILED_HEADERS AND CMAKE_CXX_COMPILER_ID STREQUAL Clang)
    target_compile_options(velumora-compile INTERFACE "SHELL:-Xclang -fno-pch-timestamp")
endif()

# velumora_precompile(TARGET header...)
function(velumora_precompile target)
    if(VELUMORA_PRECOMPILED_HEADERS)
        target_precompile_headers(${target} PRIVATE ${ARGN})
    endif()
endfunction()

# velumora_share_precompiled(TARGET other): reuses the headers parsed for `other`, which must have the same options.
function(velumora_share_precompiled target other)
    if(VELUMORA_PRECOMPILED_HEADERS)
        target_precompile_headers(${target} REUSE_FROM ${other})
    endif()
endfunction()
