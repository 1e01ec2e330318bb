// SPDX-License-Identifier: MIT
#include "print/MonthPage.h"

#include "look/Appearance.h"
#include "look/NamedColor.h"
#include "print/FittedText.h"
#include "print/PrintedText.h"
#include "text/WritingDirection.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QStyle>
#include <QTextLayout>

namespace {

// Lengths on the paper, in points.
constexpr qreal margin = 36;
constexpr qreal titleHeight = 44;
constexpr qreal weekdayHeight = 22;
constexpr qreal cellPadding = 5;
constexpr qreal dayHeight = 16;
constexpr qreal lineWidth = 0.5;

constexpr qreal titleSize = 24;
constexpr qreal weekdaySize = 10;
constexpr qreal daySize = 12;
constexpr std::array noteSizes{9.0, 8.0, 7.0}; ///< a long note gets a smaller size before it is cut

const QString creator = QStringLiteral("Velumora");

constexpr int dotsPerInch = 1200;

/// Metadata for readers that show more than a document's title; they show the creator as its author.
QByteArray metadataOf(const MonthPage& page)
{
    const QString packet = QStringLiteral(
        "<?xpacket begin=\"\uFEFF\" id=\"W5M0MpCehiHzreSzNTczkc9d\"?>"
        "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\"><rdf:RDF xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\">"
        "<rdf:Description rdf:about=\"\" xmlns:dc=\"http://purl.org/dc/elements/1.1/\">"
        "<dc:title><rdf:Alt><rdf:li xml:lang=\"x-default\">%1</rdf:li></rdf:Alt></dc:title>"
        "<dc:creator><rdf:Seq><rdf:li>%2</rdf:li></rdf:Seq></dc:creator>"
        "</rdf:Description></rdf:RDF></x:xmpmeta><?xpacket end=\"r\"?>");
    return packet.arg(page.title.toHtmlEscaped(), creator).toUtf8();
}

/// Paints one page on a device of any resolution.
class PagePainter {
public:
    PagePainter(QPainter& painter, const MonthPage& page)
        : m_painter(painter), m_paper(painter), m_page(page), m_colors(calmPalette(Appearance::Light)),
          m_point(painter.device()->logicalDpiX() / pointsPerInch),
          m_sheet(QPointF(), QSizeF(painter.device()->width(), painter.device()->height()))
    {
        const qreal edge = margin * m_point;
        const QRectF inside = m_sheet.adjusted(edge, edge, -edge, -edge);
        m_title = QRectF(inside.topLeft(), QSizeF(inside.width(), titleHeight * m_point));
        m_grid = inside.adjusted(0, m_title.height(), 0, 0);
    }

    /// Paints the page and returns its text layer.
    PdfTextLayer paint()
    {
        m_painter.setPen(namedColor(u"ControlTextColor", m_colors));
        write(m_title, m_page.title, font(titleSize, QFont::Bold), Qt::AlignLeading | Qt::AlignTop);
        for (int column = 0; column < m_page.weekdays.size(); ++column) {
            const QRectF place(columnLeft(column), m_grid.top(), columnWidth(), weekdayHeight * m_point);
            m_painter.setPen(m_colors.color(QPalette::Dark));
            write(place, m_page.weekdays.at(column), font(weekdaySize), Qt::AlignCenter);
        }
        const QRectF days = m_grid.adjusted(0, weekdayHeight * m_point, 0, 0);
        m_painter.setPen(QPen(m_colors.color(QPalette::Mid), lineWidth * m_point));
        m_painter.setBrush(m_colors.window());
        m_painter.drawRect(days);
        for (int cell = MonthGrid::FirstCell; cell <= MonthGrid::LastCell; ++cell) {
            if (!m_page.cell(cell).day.isEmpty()) {
                paintCell(cellRect(cell), m_page.cell(cell));
            }
        }
        return m_paper.layer();
    }

private:
    QFont font(qreal points, QFont::Weight weight = QFont::Normal) const
    {
        QFont result = QGuiApplication::font();
        result.setPixelSize(std::max(qRound(points * m_point), 1));
        result.setWeight(weight);
        return result;
    }

    void write(const QRectF& place, const QString& text, const QFont& textFont, Qt::Alignment alignment)
    {
        QTextLayout layout(text, textFont, m_painter.device());
        QTextOption option(QStyle::visualAlignment(m_page.direction, alignment));
        option.setTextDirection(writingDirection(text, m_page.direction));
        option.setWrapMode(QTextOption::NoWrap);
        layout.setTextOption(option);
        layout.beginLayout();
        QTextLine line = layout.createLine();
        line.setLineWidth(place.width());
        layout.endLayout();
        const qreal spare = place.height() - line.height();
        m_paper.write(layout, line, place.topLeft() + QPointF(0, alignment & Qt::AlignVCenter ? spare / 2 : 0));
    }

    qreal columnWidth() const { return m_grid.width() / MonthGrid::DaysPerWeek; }

    qreal columnLeft(int column) const
    {
        const bool mirrored = m_page.direction == Qt::RightToLeft;
        return m_grid.left() + columnWidth() * (mirrored ? MonthGrid::DaysPerWeek - 1 - column : column);
    }

    QRectF cellRect(int cell) const
    {
        const qreal top = m_grid.top() + weekdayHeight * m_point;
        const qreal height = (m_grid.bottom() - top) / m_page.rowCount();
        return {columnLeft(MonthGrid::columnOfCell(cell)), top + height * MonthGrid::rowOfCell(cell), columnWidth(),
                height};
    }

    void paintCell(const QRectF& place, const MonthPage::Cell& cell)
    {
        m_painter.setPen(QPen(m_colors.color(QPalette::Mid), lineWidth * m_point));
        m_painter.setBrush(m_colors.base());
        m_painter.drawRect(place);

        const qreal padding = cellPadding * m_point;
        const QRectF inside = place.adjusted(padding, padding, -padding, -padding);
        const QRectF dayPlace(inside.topLeft(), QSizeF(inside.width(), dayHeight * m_point));
        m_painter.setPen(namedColor(cell.isToday ? u"SystemRedColor" : u"ControlTextColor", m_colors));
        write(dayPlace, cell.day, font(daySize, cell.isToday ? QFont::Bold : QFont::Normal),
              Qt::AlignLeading | Qt::AlignTop);

        std::vector<QFont> noteFonts;
        noteFonts.reserve(noteSizes.size());
        for (const qreal size : noteSizes) {
            noteFonts.push_back(font(size));
        }
        m_painter.setPen(namedColor(u"ControlTextColor", m_colors));
        writeFittedText(m_paper, inside.adjusted(0, dayPlace.height(), 0, 0), cell.note, noteFonts, m_page.direction);
    }

    QPainter& m_painter;
    PrintedText m_paper;
    const MonthPage& m_page;
    QPalette m_colors;
    qreal m_point; ///< dots
    QRectF m_sheet;
    QRectF m_title;
    QRectF m_grid;
};

} // namespace

int MonthPage::rowCount() const
{
    int last = MonthGrid::LastCell;
    while (last > MonthGrid::FirstCell && cell(last).day.isEmpty()) {
        --last;
    }
    return MonthGrid::rowOfCell(last) + 1;
}

QByteArray pdfOf(const MonthPage& page, PaperSize paper)
{
    QByteArray document;
    QBuffer buffer(&document);
    buffer.open(QIODevice::WriteOnly);
    PdfTextLayer layer;
    {
        QPdfWriter writer(&buffer);
        writer.setTitle(page.title);
        writer.setCreator(creator);
        writer.setDocumentXmpMetadata(metadataOf(page));
        writer.setResolution(dotsPerInch);
        writer.setPageLayout(QPageLayout(QPageSize(QSizeF(paper.width, paper.height), QPageSize::Millimeter),
                                         QPageLayout::Landscape, QMarginsF()));
        QPainter painter(&writer);
        layer = PagePainter(painter, page).paint();
    }
    return layer.addedTo(document);
}
