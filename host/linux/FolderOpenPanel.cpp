// SPDX-License-Identifier: MIT
#include "host/linux/FolderOpenPanel.h"

#include <QFileDialog>

void FolderOpenPanel::chooseFolder(QWidget& window, const Request& request, Completion completion)
{
    auto* panel = new QFileDialog(&window, request.title, QString::fromStdString(request.folder.string()));
    panel->setAttribute(Qt::WA_DeleteOnClose);
    panel->setFileMode(QFileDialog::Directory);
    panel->setOption(QFileDialog::ShowDirsOnly);
    panel->setLabelText(QFileDialog::Accept, request.acceptButton);
    QObject::connect(panel, &QFileDialog::finished, panel, [panel, completion = std::move(completion)](int result) {
        const QStringList chosen = panel->selectedFiles();
        if (result == QDialog::Accepted && !chosen.isEmpty()) {
            completion(std::filesystem::path(chosen.first().toStdString()));
        } else {
            completion(std::nullopt);
        }
    });
    panel->open();
}
