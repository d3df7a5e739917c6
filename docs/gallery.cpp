// Writes a picture of every shape, fill, line style and width, painted as the library paints them: also in
// the cells of the tree, at the edges of its window, and on a dark desktop.
//   gallery FILE.png
#include <DeviceContext.h>
#include <QtConvert.h>

#include <QGuiApplication>
#include <QPalette>
#include <afxwin.h>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <model/LineDef.h>
#include <model/Palette.h>
#include <model/StyleNames.h>

namespace
{

constexpr int margin = 16;
constexpr int captionWidth = 100;
constexpr int cellWidth = 68;
constexpr int linePadding = 8; // for the round ends of wide lines
constexpr int cellHeight = 30;
constexpr int titleHeight = 22;
constexpr int headingHeight = 18;
constexpr int gap = 14;

constexpr short sizes[] = {4, 6, 8, 10, 12, 15, 20, 25};
constexpr short widths[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
constexpr short pictureSize = 15;
constexpr short cutSize = 25;
constexpr short cellSizes[] = {10, 15};
constexpr int treeCellWidth = 47;
constexpr COLORREF background = RGB(255, 255, 255);
constexpr COLORREF captionColor = RGB(0x30, 0x30, 0x30);
constexpr COLORREF titleColor = RGB(0x00, 0x00, 0x8B);
constexpr COLORREF cellColor = RGB(0xF2, 0xF4, 0xF7); // not white, so that the window colour shows
constexpr COLORREF symbolColor = RGB(0x8B, 0x00, 0x00);
constexpr COLORREF lineColor = RGB(0x00, 0x00, 0xFF);

constexpr int squareShape = 4;
constexpr int columns = 10;
constexpr int pageWidth = 2 * margin + captionWidth + columns * cellWidth;

struct Ground {
    COLORREF Color;
    int Width = cellWidth - 4;
    int Padding = linePadding; // on both sides of the line
};

// The part of a row that is shown.
enum class Part { Whole, Upper, Lower };

// A page that is filled from the top down.
class Page
{
public:
    explicit Page(const gdi::Surface& surface) : m_surface(surface)
    {
        m_dc.Attach(gdi::CreateSurfaceDC(surface, {0, 0, surface.Width, surface.Height}));
        m_dc.FillSolidRect(0, 0, surface.Width, surface.Height, background);
    }

    int Bottom() const { return m_y; }

    void Title(const CString& text)
    {
        Write(text, {margin, m_y, pageWidth - margin, m_y + titleHeight}, titleColor, 0);
        m_y += titleHeight;
    }

    template <class Caption> void Headings(int count, const Caption& caption)
    {
        for (int i = 0; i < count; ++i) {
            const int left = margin + captionWidth + i * cellWidth;
            Write(caption(i), {left, m_y, left + cellWidth, m_y + headingHeight}, captionColor, DT_CENTER);
        }
        m_y += headingHeight;
    }

    // A row of pictures of style(0), style(1) and so on.
    template <class Style>
    void Row(const CString& caption, int count, const Style& style, const Ground& ground = {cellColor},
             Part part = Part::Whole)
    {
        const int height = part == Part::Whole ? cellHeight : cellHeight / 2;
        const int top = part == Part::Lower ? m_y - height : m_y; // of the whole row
        Write(caption, {margin, m_y, margin + captionWidth, m_y + height}, captionColor, 0);
        CDC dc;
        dc.Attach(gdi::CreateSurfaceDC(m_surface, {0, m_y, m_surface.Width, m_y + height}));
        for (int i = 0; i < count; ++i) {
            const int left = margin + captionWidth + i * cellWidth + 2;
            const CRect cell(left, top + 1, left + ground.Width, top + cellHeight - 1);
            dc.FillSolidRect(cell, ground.Color);
            k_LineDef record;
            style(record, i);
            CRect sample = cell;
            sample.InflateRect(-ground.Padding, 0);
            record.DrawLine(&dc, sample);
            record.DrawSymbol(&dc, cell);
        }
        m_y += height;
    }

    void Gap() { m_y += gap; }

private:
    void Write(const CString& text, RECT rect, COLORREF color, UINT alignment)
    {
        m_dc.SetTextColor(color);
        m_dc.SetBkMode(TRANSPARENT);
        m_dc.DrawText(text, &rect, alignment | DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    }

    gdi::Surface m_surface;
    CDC m_dc;
    int m_y = margin;
};

CString Number(int number)
{
    CString text;
    text.Format(_T("%d"), number);
    return text;
}

void SetSymbol(k_LineDef& style, int shape, int fill, short size)
{
    style.SymbolShape = static_cast<short>(shape);
    style.SymbolFill = static_cast<short>(fill);
    style.SymbolSize = size;
    style.SymbolColor = symbolColor;
    style.LineColor = lineColor;
}

void AddShapes(Page& page)
{
    page.Title(_T("Shapes and fills, size 15, over a line"));
    page.Headings(k_SymbolShapeCount, [](int shape) { return CString(k_SymbolShapes[shape]); });
    for (int fill = 0; fill < k_SymbolFillCount; ++fill)
        page.Row(k_SymbolFills[fill], k_SymbolShapeCount,
                 [fill](k_LineDef& style, int shape) { SetSymbol(style, shape, fill, pictureSize); });
    page.Gap();
}

void AddSizes(Page& page)
{
    page.Title(_T("Sizes, empty with dot"));
    page.Headings(std::size(sizes), [](int i) { return Number(sizes[i]); });
    for (int shape = 1; shape < k_SymbolShapeCount; ++shape)
        page.Row(k_SymbolShapes[shape], std::size(sizes), [shape](k_LineDef& style, int i) {
            SetSymbol(style, shape, 2, sizes[i]);
            style.LineWidth = 0;
        });
    page.Gap();
}

void AddLines(Page& page)
{
    page.Title(_T("Line styles and widths"));
    page.Headings(std::size(widths), [](int i) { return Number(widths[i]); });
    for (const k_LineStyleName& line : k_LineStyles)
        page.Row(line.Name, std::size(widths), [&line](k_LineDef& style, int i) {
            style.LineStyle = line.LineStyle;
            style.LineWidth = widths[i];
            style.LineColor = lineColor;
        });
    page.Gap();
}

void AddColors(Page& page)
{
    page.Title(_T("The palette"));
    for (int first = 0; first < k_PaletteSize; first += columns)
        page.Row(Number(first + 1) + _T(" to ") + Number(first + columns), columns,
                 [first](k_LineDef& style, int i) {
                     SetSymbol(style, 1 + i % (k_SymbolShapeCount - 1), 0, pictureSize);
                     style.LineColor = style.SymbolColor = k_Palette[first + i].Color;
                 });
}

void AddCells(Page& page)
{
    page.Title(_T("Line styles in a cell of the tree"));
    page.Headings(k_LineStyleCount, [](int i) { return CString(k_LineStyles[i].Name); });
    for (const short size : cellSizes)
        page.Row(_T("size ") + Number(size), k_LineStyleCount,
                 [size](k_LineDef& style, int i) {
                     SetSymbol(style, squareShape, 1, size);
                     style.LineStyle = k_LineStyles[i].LineStyle;
                 },
                 {background, treeCellWidth, 0});
    page.Gap();
}

void AddCutRows(Page& page)
{
    page.Title(_T("Rows at the edges of a window, filled, size 25"));
    for (const auto& [caption, part] :
         {std::pair(_T("first row"), Part::Lower), {_T("last row"), Part::Upper}}) {
        page.Row(
            caption, k_SymbolShapeCount,
            [](k_LineDef& style, int shape) { SetSymbol(style, shape, 0, cutSize); }, {cellColor}, part);
        page.Gap();
    }
}

QPalette DarkPalette()
{
    return {QColor(Qt::white), QColor(Qt::black)};
}

// With the colours that windows have there.
void AddDarkDesktop(Page& page)
{
    const QPalette before = QGuiApplication::palette();
    QGuiApplication::setPalette(DarkPalette());
    page.Title(_T("On a dark desktop: on windows, selected, disabled"));
    for (const auto& [caption, color] : {std::pair(_T("window"), COLOR_WINDOW),
                                         {_T("highlight"), COLOR_HIGHLIGHT},
                                         {_T("face"), COLOR_BTNFACE}})
        page.Row(caption, k_SymbolShapeCount,
                 [](k_LineDef& style, int shape) {
                     SetSymbol(style, shape, shape % k_SymbolFillCount, pictureSize);
                     style.SymbolColor = ::GetSysColor(COLOR_WINDOWTEXT);
                 },
                 {::GetSysColor(color)});
    QGuiApplication::setPalette(before);
    page.Gap();
}

int Fill(const gdi::Surface& surface)
{
    Page page(surface);
    AddShapes(page);
    AddSizes(page);
    AddLines(page);
    AddCells(page);
    AddCutRows(page);
    AddDarkDesktop(page);
    AddColors(page);
    return page.Bottom() + margin;
}

bool WritePicture(const char* path)
{
    constexpr int maxHeight = 2000;
    QImage image(pageWidth, maxHeight, QImage::Format_RGB32);
    const gdi::Surface surface{reinterpret_cast<gdi::Pixel*>(image.bits()), image.width(), image.height(),
                               image.bytesPerLine() / static_cast<qsizetype>(sizeof(gdi::Pixel))};
    const int height = Fill(surface);
    return image.copy(0, 0, pageWidth, height).save(QString::fromLocal8Bit(path), "PNG");
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "Usage: %s FILE.png\n", argv[0]);
        return EXIT_FAILURE;
    }
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const QGuiApplication application(argc, argv);
    if (WritePicture(argv[1]))
        return EXIT_SUCCESS;
    std::fprintf(stderr, "%s: cannot be written\n", argv[1]);
    return EXIT_FAILURE;
}
