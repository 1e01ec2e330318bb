// SPDX-License-Identifier: MIT
#include "host/linux/PrivateSettings.h"

#include <QEvent>

#include <sys/stat.h>

namespace {

constexpr mode_t othersPermissions = S_IRWXG | S_IRWXO;

/// While it exists, new files of the process are accessible to the user alone.
class PrivateFileMode {
public:
    PrivateFileMode() = default;
    PrivateFileMode(const PrivateFileMode&) = delete;
    PrivateFileMode& operator=(const PrivateFileMode&) = delete;
    ~PrivateFileMode() { ::umask(m_former); }

private:
    mode_t m_former = ::umask(othersPermissions);
};

/// Removes the permissions of others from the file, if it exists. On a disk without permissions nothing more can be
/// done.
void closeToOthers(const QString& file)
{
    const std::string name = file.toStdString();
    struct stat status {};
    if (::stat(name.c_str(), &status) == 0 && S_ISREG(status.st_mode) && (status.st_mode & othersPermissions) != 0) {
        (void)::chmod(name.c_str(), S_IRUSR | S_IWUSR);
    }
}

} // namespace

PrivateSettings::PrivateSettings()
{
    closeToOthers(fileName());
}

PrivateSettings::~PrivateSettings()
{
    save();
}

void PrivateSettings::save()
{
    const PrivateFileMode mode;
    closeToOthers(fileName());
    sync();
}

bool PrivateSettings::event(QEvent* event)
{
    if (event->type() != QEvent::UpdateRequest) {
        return QSettings::event(event);
    }
    const PrivateFileMode mode;
    closeToOthers(fileName());
    return QSettings::event(event);
}
