# Headers that most sources include, parsed once a target instead of once a source: they are most of a compile. A source
# still includes what it uses; the linter reads it without these.
option(VELUMORA_PRECOMPILED_HEADERS "Parse the common headers once a target" ON)

set(VELUMORA_CORE_HEADERS
    <QDate> <QList> <QString> <QStringList>
    <algorithm> <chrono> <filesystem> <functional> <memory> <optional> <string> <string_view> <utility> <vector>)
set(VELUMORA_APP_HEADERS ${VELUMORA_CORE_HEADERS}
    <QApplication> <QDialog> <QKeyEvent> <QLabel> <QLineEdit> <QMainWindow> <QMenu>
    <QPainter> <QPlainTextEdit> <QPointer> <QPushButton> <QScrollBar> <QTimer> <QUrl> <QWidget>)

# So that ccache can tell with which of them a source was compiled.
if(VELUMORA_PRECOMPILED_HEADERS AND CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    target_compile_options(velumora-compile INTERFACE -fpch-preprocess)
endif()

# velumora_precompile(TARGET header...)
function(velumora_precompile target)
    if(VELUMORA_PRECOMPILED_HEADERS)
        target_precompile_headers(${target} PRIVATE ${ARGN})
    endif()
endfunction()

# velumora_share_precompiled(TARGET other): the headers that `other` has parsed; both are compiled alike.
function(velumora_share_precompiled target other)
    if(VELUMORA_PRECOMPILED_HEADERS)
        target_precompile_headers(${target} REUSE_FROM ${other})
    endif()
endfunction()
