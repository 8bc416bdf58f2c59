#include "PageFlow.h"

#include "Kanvas.h"

#include <QTextLayout>

#include <algorithm>

namespace veskora {

Sheet::Sheet(QPaintDevice &device, double width, double height)
    : device_(&device), width_(width), height_(height)
{}

double Sheet::cm(double centimetres) const
{
    return centimetres / 2.54 * device_->logicalDpiX();
}

QFont Sheet::font(double points, bool isBold) const
{
    QFont font(QString::fromLatin1(canvasFontFace));
    font.setStyleHint(QFont::SansSerif);
    font.setPointSizeF(points);
    font.setBold(isBold);
    return font;
}

QStringList Sheet::wrapped(const QString &text, const QFont &font, double width) const
{
    QStringList lines;
    for (const QString &line : text.split("\r\n")) {
        QTextLayout layout(line, font, device_);
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        layout.setTextOption(option);
        layout.beginLayout();
        for (QTextLine row = layout.createLine(); row.isValid(); row = layout.createLine()) {
            row.setLineWidth(width);
            lines << line.mid(row.textStart(), row.textLength()).trimmed();
        }
        layout.endLayout();
    }
    return lines;
}

double PrintedBlock::height(std::size_t first, std::size_t end) const
{
    double height = repeatedHeight();
    for (std::size_t part = first; part < end; ++part)
        height += heightOf(part);
    return height;
}

namespace {

using Blocks = std::vector<std::unique_ptr<PrintedBlock>>;

/// Puts one block after the other.
class Flow
{
public:
    explicit Flow(double height) : height_(height), pages_(1) {}

    void add(const Blocks &blocks, std::size_t index)
    {
        const PrintedBlock &block = *blocks[index];
        const double space = pages_.back().empty() ? 0 : block.spaceAbove();
        if (y_ + space + heightToBegin(blocks, index) > height_)
            turn();
        else
            y_ += space;
        for (std::size_t first = 0; first < block.parts();) {
            const std::size_t end = lastOnPage(block, first);
            pages_.back().push_back({index, first, end, y_});
            y_ += block.height(first, end);
            first = end;
            if (first < block.parts())
                turn();
        }
    }
    std::vector<Page> take() { return std::move(pages_); }

private:
    /// With the beginning of what it leads on to.
    static double heightToBegin(const Blocks &blocks, std::size_t index)
    {
        const PrintedBlock &block = *blocks[index];
        const double begin = block.height(0, std::min(block.partsToBegin(), block.parts()));
        if (!block.leadsOn() || index + 1 == blocks.size())
            return begin;
        return begin + blocks[index + 1]->spaceAbove() + heightToBegin(blocks, index + 1);
    }

    /// At least one part is taken, and few are not left to stand alone on the next page.
    std::size_t lastOnPage(const PrintedBlock &block, std::size_t first) const
    {
        std::size_t end = first + 1;
        for (double y = y_ + block.height(first, end); end < block.parts(); ++end) {
            y += block.heightOf(end);
            if (y > height_)
                break;
        }
        constexpr std::size_t least = 3;
        const std::size_t left = block.parts() - end;
        if (left == 0 || left >= least)
            return end;
        const std::size_t enough = first + std::min(block.partsToBegin(), end - first);
        return std::max(enough, end - std::min(end, least - left));
    }

    void turn()
    {
        if (!pages_.back().empty())
            pages_.emplace_back();
        y_ = 0;
    }

    double height_;
    double y_ = 0;
    std::vector<Page> pages_;
};

} // namespace

std::vector<Page> pagesOf(const Blocks &blocks, double height)
{
    Flow flow(height);
    for (std::size_t index = 0; index < blocks.size(); ++index)
        flow.add(blocks, index);
    return flow.take();
}

} // namespace veskora
