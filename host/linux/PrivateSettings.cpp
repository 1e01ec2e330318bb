// SPDX-License-Identifier: MIT
#include "host/linux/PrivateSettings.h"

#include <QEvent>

#include <sys/stat.h>

namespace {

constexpr mode_t othersPermissions = S_IRWXG | S_IRWXO;

/// While it lives, what the process makes is the user's alone.
class PrivateFileMode {
public:
    PrivateFileMode() = default;
    PrivateFileMode(const PrivateFileMode&) = delete;
    PrivateFileMode& operator=(const PrivateFileMode&) = delete;
    ~PrivateFileMode() { ::umask(m_former); }

private:
    mode_t m_former = ::umask(othersPermissions);
};

/// Closes the file to others; nothing happens where there is none. A file whose permissions cannot be changed, on
/// a disk that has none, is as private as it can be.
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
