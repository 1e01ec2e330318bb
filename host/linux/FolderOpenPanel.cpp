// SPDX-License-Identifier: MIT
#include "host/linux/FolderOpenPanel.h"

#include "text/TextLines.h"

#include <QDialog>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QVBoxLayout>

namespace {

/// `folder` with a leading tilde expanded, or the nearest existing folder above it.
QString existingFolder(const std::filesystem::path& folder)
{
    QString path = QString::fromStdString(folder.string());
    if (path.startsWith(u"~/")) {
        path = QDir::homePath() + path.mid(1);
    }
    while (!QDir(path).exists() && path.contains(u'/')) {
        path = path.left(path.lastIndexOf(u'/'));
    }
    return path;
}

} // namespace

void FolderOpenPanel::chooseFolder(QWidget& window, const Request& request, Completion completion)
{
    auto* panel = new QDialog(&window);
    panel->setAttribute(Qt::WA_DeleteOnClose);
    panel->setWindowTitle(request.title);

    auto* message = new QLabel(withLineFeeds(request.message).trimmed());
    message->setTextFormat(Qt::PlainText);
    message->setWordWrap(true);
    message->setContentsMargins(16, 16, 16, 0);

    auto* files = new QFileDialog(nullptr, request.title, existingFolder(request.folder));
    files->setWindowFlags(Qt::Widget); // part of the panel, below the message
    files->setOption(QFileDialog::DontUseNativeDialog);
    files->setFileMode(QFileDialog::Directory);
    files->setOption(QFileDialog::ShowDirsOnly);
    files->setLabelText(QFileDialog::Accept, request.acceptButton);
    files->setSizeGripEnabled(false);
    QObject::connect(files, &QFileDialog::finished, panel, &QDialog::done);
    QObject::connect(panel, &QDialog::finished, panel, [files, completion = std::move(completion)](int result) {
        const QStringList chosen = files->selectedFiles();
        if (result == QDialog::Accepted && !chosen.isEmpty()) {
            completion(std::filesystem::path(chosen.first().toStdString()));
        } else {
            completion(std::nullopt);
        }
    });

    auto* layout = new QVBoxLayout(panel);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(message);
    layout->addWidget(files);
    m_present(*panel, window);
}
