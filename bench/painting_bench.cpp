// The painting of styles: a cell for each shape and fill, a page of cells, and growth with the size of the
// symbol; against QPainter without antialiasing, opened once, and against filling the same area once.
#include "StylePeer.h"
#include "Suite.h"

#include <DeviceContext.h>
#include <QtConvert.h>

#include <QPainter>
#include <afxwin.h>
#include <cstdlib>
#include <iterator>
#include <model/LineDef.h>
#include <model/StyleNames.h>
#include <stdexcept>

namespace
{

constexpr double painterGoal = 0.1;
constexpr double wideLineGoal = 2;
constexpr short wideLine = 10;
constexpr double growthGoal = 1;
constexpr int cellWidth = 60;
constexpr int cellHeight = 18;
constexpr int pageColumns = 32;
constexpr int pageRows = 20;
constexpr int pageCells = pageRows * pageColumns;
constexpr short cellSymbol = 10;
constexpr int smallSize = 16;
constexpr int largeSize = 256;
constexpr int growthSide = 300;
constexpr COLORREF symbolColor = RGB(0x8B, 0, 0);
constexpr COLORREF lineColor = RGB(0, 0, 0xFF);
constexpr COLORREF cellColor = RGB(0xC0, 0xC0, 0xC0);
constexpr double maxDifferent = 0.25; // of the pixels that either side paints

void SetStyle(k_LineDef& style, int shape, int fill, int size = cellSymbol)
{
    style.SymbolShape = static_cast<short>(shape);
    style.SymbolFill = static_cast<short>(fill);
    style.SymbolSize = static_cast<short>(size);
    style.SymbolColor = symbolColor;
    style.LineColor = lineColor;
}

// An image with a device context.
class Board
{
public:
    Board(int width, int height) : Image(width, height, QImage::Format_RGB32)
    {
        const gdi::Surface surface{reinterpret_cast<gdi::Pixel*>(Image.bits()), width, height,
                                   Image.bytesPerLine() / static_cast<qsizetype>(sizeof(gdi::Pixel))};
        Dc.Attach(gdi::CreateSurfaceDC(surface, {0, 0, width, height}));
        Dc.SetBkMode(TRANSPARENT);
        Clear();
    }

    void Clear() { Dc.FillSolidRect(0, 0, Image.width(), Image.height(), cellColor); }

    QImage Image;
    CDC Dc;
};

// The area of the symbol. Both sides clear it first, as a symbol over itself leaves nothing to fill.
CRect SymbolPlace(const k_LineDef& style, const RECT& cell)
{
    CRect place((cell.left + cell.right) / 2, (cell.top + cell.bottom) / 2, (cell.left + cell.right) / 2,
                (cell.top + cell.bottom) / 2);
    place.InflateRect(style.SymbolSize / 2 + 1, style.SymbolSize / 2 + 1);
    return place;
}

void PaintOurs(CDC& dc, const k_LineDef& style, const RECT& cell)
{
    dc.FillSolidRect(SymbolPlace(style, cell), cellColor);
    style.DrawLine(&dc, cell);
    style.DrawSymbol(&dc, cell);
}

// The same picture, drawn with QPainter in the usual way.
class Peer
{
public:
    explicit Peer(QImage& image) : m_painter(&image)
    {
        m_painter.setRenderHint(QPainter::Antialiasing, false);
    }

    void Paint(const k_LineDef& style, const RECT& cell)
    {
        m_painter.fillRect(gdi::ToQRect(gdi::ToBox(SymbolPlace(style, cell))), gdi::ToQColor(cellColor));
        bench::PaintStyleByPainter(m_painter, style, gdi::ToQRect(gdi::ToBox(cell)));
    }

private:
    QPainter m_painter;
};

// Throws unless both sides paint the same picture except for rounding.
void RequireAlike(const QImage& ours, const QImage& peer, const std::string& name)
{
    int painted = 0;
    int different = 0;
    for (int y = 0; y < ours.height(); ++y) {
        for (int x = 0; x < ours.width(); ++x) {
            const QRgb background = gdi::ToPixel(cellColor);
            const QRgb first = ours.pixel(x, y);
            const QRgb second = peer.pixel(x, y);
            painted += first != background || second != background ? 1 : 0;
            different += first != second ? 1 : 0;
        }
    }
    if (painted == 0 || different > painted * maxDifferent)
        throw std::runtime_error(name + ": the two pictures differ");
}

// Adds the three measurements of a picture: describe(paint) calls paint(style, cell) for each of its cells.
template <class Describe>
void AddPictures(bench::Suite& suite, const std::string& name, int width, int height, double cells,
                 const Describe& describe)
{
    {
        Board ours(width, height);
        Board peer(width, height);
        describe([&](const k_LineDef& style, const RECT& cell) { PaintOurs(ours.Dc, style, cell); });
        Peer painter(peer.Image);
        describe([&](const k_LineDef& style, const RECT& cell) { painter.Paint(style, cell); });
        RequireAlike(ours.Image, peer.Image, name);
    }
    suite.Add(name, cells, [=](benchmark::State& state) {
        Board board(width, height);
        for ([[maybe_unused]] const auto iteration : state)
            describe([&](const k_LineDef& style, const RECT& cell) { PaintOurs(board.Dc, style, cell); });
    });
    suite.Add("QPainter, " + name, cells, [=](benchmark::State& state) {
        Board board(width, height);
        Peer painter(board.Image);
        for ([[maybe_unused]] const auto iteration : state)
            describe([&](const k_LineDef& style, const RECT& cell) { painter.Paint(style, cell); });
    });
    suite.Add("fill, " + name, cells, [=](benchmark::State& state) {
        Board board(width, height);
        for ([[maybe_unused]] const auto iteration : state)
            describe([&](const k_LineDef&, const RECT& cell) { board.Dc.FillSolidRect(&cell, cellColor); });
    });
    suite.Compare({.Name = name, .Ours = name, .Peer = "QPainter, " + name, .Goal = painterGoal});
    suite.Compare({.Name = name, .Ours = name, .Peer = "fill, " + name});
}

void AddCells(bench::Suite& suite)
{
    for (int shape = 1; shape < k_SymbolShapeCount; ++shape) {
        for (int fill = 0; fill < k_SymbolFillCount; ++fill) {
            const std::string name = "shape " + std::to_string(shape) + ", fill " + std::to_string(fill);
            AddPictures(suite, name, cellWidth, cellHeight, 1, [=](const auto& paint) {
                k_LineDef style;
                SetStyle(style, shape, fill);
                paint(style, {0, 0, cellWidth, cellHeight});
            });
        }
    }
}

void AddPage(bench::Suite& suite)
{
    AddPictures(suite, "page", pageColumns * cellWidth, pageRows * cellHeight, pageCells,
                [](const auto& paint) {
                    k_LineDef style;
                    for (int i = 0; i < pageCells; ++i) {
                        SetStyle(style, i % k_SymbolShapeCount, i % k_SymbolFillCount);
                        if (style.SymbolShape == 0)
                            style.SymbolShape = 9;
                        style.LineStyle = static_cast<short>(i / k_SymbolShapeCount % k_LineStyleCount);
                        const int left = i % pageColumns * cellWidth + 2;
                        const int top = i / pageColumns * cellHeight;
                        paint(style, {left, top, left + cellWidth - 4, top + cellHeight});
                    }
                });
}

// Both strokes of a wide line, against filling its box twice.
void AddWideLine(bench::Suite& suite)
{
    static constexpr RECT cell{10, 0, cellWidth + 10, cellHeight};
    static const std::string name = "line of width " + std::to_string(wideLine);
    suite.Add(name, 1, [](benchmark::State& state) {
        Board board(cellWidth + 20, cellHeight);
        k_LineDef style;
        SetStyle(style, 0, 0);
        style.LineWidth = wideLine;
        for ([[maybe_unused]] const auto iteration : state)
            style.DrawLine(&board.Dc, cell);
    });
    suite.Add("fill, " + name, 1, [](benchmark::State& state) {
        Board board(cellWidth + 20, cellHeight);
        CRect box(cell.left, cell.bottom / 2, cell.right, cell.bottom / 2);
        box.InflateRect(wideLine / 2, wideLine / 2);
        for ([[maybe_unused]] const auto iteration : state) {
            board.Dc.FillSolidRect(&box, cellColor);
            board.Dc.FillSolidRect(&box, lineColor);
        }
    });
    suite.Compare({.Name = name, .Ours = name, .Peer = "fill, " + name, .Goal = wideLineGoal});
}

// A large symbol against a small one, per pixel of the square that holds it.
void AddGrowth(bench::Suite& suite)
{
    static constexpr RECT whole{0, 0, growthSide, growthSide};
    for (int shape = 1; shape < k_SymbolShapeCount; ++shape) {
        const auto add = [&](int size) {
            const std::string name = "shape " + std::to_string(shape) + ", size " + std::to_string(size);
            suite.Add(name, double{1} * size * size, [=](benchmark::State& state) {
                Board board(growthSide, growthSide);
                k_LineDef style;
                SetStyle(style, shape, 0, size);
                for ([[maybe_unused]] const auto iteration : state) {
                    board.Dc.FillSolidRect(SymbolPlace(style, whole), cellColor);
                    style.DrawSymbol(&board.Dc, whole);
                }
            });
            return name;
        };
        const std::string small = add(smallSize);
        const std::string large = add(largeSize);
        suite.Compare({.Name = large, .Ours = large, .Peer = small, .Goal = growthGoal});
    }
}

int Run(int argc, char** argv)
{
    const std::vector<std::string> options = {"--benchmark_repetitions=9", "--benchmark_min_time=0.01"};
    bench::Suite pictures(argc, argv, options);
    AddCells(pictures);
    AddPage(pictures);
    AddWideLine(pictures);
    pictures.Run();
    bench::Suite growth(argc, argv, options);
    AddGrowth(growth);
    growth.Run();
    pictures.PrintTable("Painting a style", bench::threadTime + "a cell");
    growth.PrintTable("Growth with the size of the symbol", bench::threadTime + "a pixel of its square");
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv)
{
    return bench::RunProgram(argc, argv, Run);
}
