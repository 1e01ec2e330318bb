// SPDX-License-Identifier: MIT
#include "reminders/StateFolder.h"

#include <QDir>

namespace {

namespace fs = std::filesystem;

fs::path baseFolder()
{
    const QString folder = qEnvironmentVariable("XDG_STATE_HOME");
    if (folder.startsWith(QLatin1Char('/'))) { // a relative one is to be ignored
        return folder.toStdString();
    }
    return fs::path(QDir::homePath().toStdString()) / ".local" / "state";
}

} // namespace

fs::path usersStateFolder()
{
    return baseFolder() / "velumora";
}
