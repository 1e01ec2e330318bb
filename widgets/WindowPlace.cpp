// SPDX-License-Identifier: MIT
#include "widgets/WindowPlace.h"

#include "store/Files.h"

#include <QEvent>
#include <QGuiApplication>
#include <QMainWindow>
#include <QScreen>

#include <algorithm>
#include <utility>

namespace {

/// Room for the window manager's frame around a window that it has not seen yet.
constexpr QMargins usualFrame(4, 36, 4, 4);
constexpr std::size_t longestFile = 200;
constexpr int greatestNumber = 100'000;

const QString maximised = QStringLiteral("maximised");
const QString usual = QStringLiteral("normal");

struct Place {
    QRect rect;
    bool isMaximised = false;
};

qint64 area(const QRect& rect)
{
    return rect.isValid() ? static_cast<qint64>(rect.width()) * rect.height() : 0;
}

/// Parses "left top width height state"; nullopt for anything else.
std::optional<Place> placeFrom(const QString& text)
{
    const QStringList words = text.simplified().split(u' ');
    if (words.size() != 5 || (words.at(4) != maximised && words.at(4) != usual)) {
        return std::nullopt;
    }
    int numbers[4] = {};
    for (int index = 0; index < 4; ++index) {
        bool isNumber = false;
        numbers[index] = words.at(index).toInt(&isNumber);
        if (!isNumber || numbers[index] < -greatestNumber || numbers[index] > greatestNumber) {
            return std::nullopt;
        }
    }
    const QRect rect(numbers[0], numbers[1], numbers[2], numbers[3]);
    return rect.isValid() ? std::optional(Place{rect, words.at(4) == maximised}) : std::nullopt;
}

std::optional<Place> placeIn(const std::filesystem::path& path)
{
    const std::optional<FileContent> content = readFile(path, longestFile);
    return content ? placeFrom(QString::fromUtf8(content->text())) : std::nullopt;
}

QList<QRect> freeScreens()
{
    QList<QRect> screens;
    for (const QScreen* screen : QGuiApplication::screens()) {
        screens.append(screen->availableGeometry());
    }
    return screens;
}

} // namespace

QRect placedOnScreen(const QRect& wanted, const QMargins& frame, const QSize& least, const QList<QRect>& screens)
{
    if (screens.isEmpty()) {
        return wanted;
    }
    const QRect whole = wanted.marginsAdded(frame);
    const QRect screen =
        *std::ranges::max_element(screens, {}, [&whole](const QRect& each) { return area(each.intersected(whole)); });
    const QRect free = screen.marginsRemoved(frame);
    QRect placed(wanted.topLeft(), wanted.size().boundedTo(free.size()).expandedTo(least));
    placed.moveLeft(std::max(std::min(placed.left(), free.right() + 1 - placed.width()), free.left()));
    placed.moveTop(std::max(std::min(placed.top(), free.bottom() + 1 - placed.height()), free.top()));
    return placed;
}

QRect placedAgain(const QRect& last, const QMargins& frame, const QSize& least, const QList<QRect>& screens)
{
    const bool fits = last.size() == last.size().expandedTo(least) &&
                      std::ranges::any_of(screens, [&last](const QRect& screen) { return screen.contains(last); });
    return fits ? last : placedOnScreen(last, frame, least, screens);
}

WindowPlace::WindowPlace(std::filesystem::path file, QMainWindow& window) : m_file(std::move(file)), m_window(window)
{
    restore();
    window.installEventFilter(this);
}

void WindowPlace::restore()
{
    const std::optional<Place> last = placeIn(m_file);
    if (!last) { // the window manager chooses the position
        const QRect screen = m_window.screen()->availableGeometry();
        m_window.resize(
            placedOnScreen({screen.topLeft(), m_window.size()}, usualFrame, m_window.minimumSizeHint(), {screen})
                .size());
        return;
    }
    m_window.setGeometry(placedAgain(last->rect, usualFrame, m_window.minimumSizeHint(), freeScreens()));
    if (last->isMaximised) {
        m_window.setWindowState(m_window.windowState() | Qt::WindowMaximized);
    }
}

void WindowPlace::save()
{
    if (!m_window.isVisible()) {
        return;
    }
    // A maximised window is saved with the rectangle that it returns to.
    const QRect rect = m_window.isMaximized() ? m_window.normalGeometry() : m_window.geometry();
    const QString state = m_window.isMaximized() ? maximised : usual;
    const QString text =
        QStringLiteral("%1 %2 %3 %4 %5\n").arg(rect.x()).arg(rect.y()).arg(rect.width()).arg(rect.height()).arg(state);
    // If it cannot be written, the window opens as it did before.
    if (!makePrivateFolder(m_file.parent_path())) {
        (void)replaceFile(m_file, text.toStdString());
    }
}

bool WindowPlace::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Close) {
        save();
    }
    return QObject::eventFilter(watched, event);
}
