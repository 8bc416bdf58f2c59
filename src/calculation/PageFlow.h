#pragma once
/// @file
/// How a document flows over pages: which parts of which block stand where.

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>

#include <memory>
#include <vector>

namespace veskora {

/// A page of a device without its margins; lengths are the device's units.
class Sheet
{
public:
    Sheet(QPaintDevice &device, double width, double height);

    double width() const { return width_; }
    double height() const { return height_; }
    double cm(double centimetres) const;
    QFont font(double points, bool isBold = false) const;
    QFontMetricsF metrics(const QFont &font) const { return {font, device_}; }
    QStringList wrapped(const QString &text, const QFont &font, double width) const;

private:
    QPaintDevice *device_;
    double width_, height_;
};

/// A block with its measures on a sheet: one part or several, between which a page may end.
class PrintedBlock
{
public:
    virtual ~PrintedBlock() = default;

    virtual std::size_t parts() const { return 1; }
    virtual double heightOf(std::size_t part) const = 0;
    /// On top of each page that it comes to.
    virtual double repeatedHeight() const { return 0; }
    virtual double spaceAbove() const = 0;
    /// Parts that stay together where the block begins.
    virtual std::size_t partsToBegin() const { return 1; }
    /// Whether it may not end a page, as a heading.
    virtual bool leadsOn() const { return false; }
    /// Parts from @p first to before @p end, the top at @p top.
    virtual void paint(QPainter &painter, double top, std::size_t first, std::size_t end) const = 0;

    double height(std::size_t first, std::size_t end) const;
};

/// Of one block on one page.
struct Placed
{
    std::size_t block, first, end;
    double top;
};
using Page = std::vector<Placed>;

std::vector<Page> pagesOf(const std::vector<std::unique_ptr<PrintedBlock>> &blocks, double height);

} // namespace veskora
