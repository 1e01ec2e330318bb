// SPDX-License-Identifier: MIT
#include "store/Recovered.h"

#include "plist/PropertyList.h"
#include "store/Files.h"

#include <QDateTime>

#include <algorithm>
#include <cmath>
#include <vector>

#include <sys/stat.h>

namespace {

namespace fs = std::filesystem;

struct Copy {
    QDateTime moment;
    fs::path path;
};

QString momentFormat()
{
    return QStringLiteral("yyyy-MM-dd HH.mm.ss.zzz");
}

/// The copies of the data file called `name`, oldest first; complete unless `error` is set.
std::vector<Copy> copiesIn(const fs::path& folder, const std::string& name, std::error_code& error)
{
    std::vector<Copy> copies;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        const std::string found = entry->path().filename().native();
        if (!found.starts_with(name + ' ')) {
            continue;
        }
        QDateTime moment = QDateTime::fromString(QString::fromStdString(found.substr(name.size() + 1)), momentFormat());
        moment.setTimeSpec(Qt::UTC);
        if (moment.isValid()) {
            copies.push_back({moment, entry->path()});
        }
    }
    std::ranges::sort(copies, {}, &Copy::moment);
    return copies;
}

/// `now`, or just after the newest copy when the clock was set back or stands still.
QDateTime momentAfter(const std::vector<Copy>& copies, Date now)
{
    const auto milliseconds = static_cast<qint64>(std::floor(unixSeconds(now) * 1000));
    const QDateTime moment = QDateTime::fromMSecsSinceEpoch(milliseconds, Qt::UTC);
    return copies.empty() ? moment : std::max(moment, copies.back().moment.addMSecs(1));
}

bool holds(const fs::path& file, std::string_view bytes)
{
    const std::optional<FileContent> content = readFile(file, PropertyList::maximumSize);
    return content && content->text() == bytes;
}

} // namespace

std::error_code Recovered::keep(const fs::path& folder, const fs::path& file, const std::string& name, Date now)
{
    if (const std::error_code error = makePrivateFolder(folder)) {
        return error;
    }
    removeStaleTemporaries(folder, name);

    std::error_code error;
    const std::vector<Copy> copies = copiesIn(folder, name, error);
    if (error) {
        return error; // an unknown copy could be overwritten
    }
    const fs::path kept = folder / (name + ' ' + momentAfter(copies, now).toString(momentFormat()).toStdString());
    const FileStatus status = FileStatus::of(file);
    if (status.error()) {
        return status.error();
    }
    bool isKept = false; // the newest copy already has this content
    if (!status.isRegular()) {
        fs::rename(file, kept, error);
    } else if (const std::optional<FileContent> content = readFile(file, PropertyList::maximumSize, error)) {
        isKept = !copies.empty() && holds(copies.back().path, content->text());
        error = isKept ? std::error_code() : replaceFile(kept, content->text());
    }
    if (error) {
        fs::create_hard_link(file, kept, error);
    }
    if (error) {
        return error;
    }
    if (const std::error_code doubt =
            syncFolder(folder)) { // even if nothing was written: an earlier attempt may have ended before this
        return doubt;
    }

    const auto surplus = static_cast<std::ptrdiff_t>(copies.size()) + (isKept ? 0 : 1) - copiesPerFile;
    for (std::ptrdiff_t i = 0; i < surplus; ++i) {
        std::error_code ignored;
        fs::remove(copies[static_cast<std::size_t>(i)].path, ignored);
    }
    return {};
}
