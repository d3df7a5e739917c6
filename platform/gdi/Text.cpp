// Text, drawn by Qt on the pixels of the context.
#include "DeviceContext.h"
#include "FontTexts.h"
#include "QtConvert.h"

#include <string>
#include <vector>

namespace gdi
{

namespace
{

constexpr std::size_t maxTextLength = 8192;
constexpr char16_t prefix = u'&';

std::u16string_view Bounded(LPCWSTR text, int count)
{
    if (text == nullptr)
        return {};
    if (count >= 0)
        return {text, std::min(static_cast<std::size_t>(count), maxTextLength)};
    std::size_t length = 0;
    while (length < maxTextLength && text[length] != u'\0')
        ++length;
    return {text, length};
}

struct Line {
    QString Text;
    qsizetype Underlined = -1; // position of the character
};

// Removes the ampersands; two in a row are one character.
Line TakePrefixes(std::u16string_view text)
{
    std::u16string shown;
    Line line;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == prefix && i + 1 < text.size()) {
            ++i;
            if (text[i] != prefix)
                line.Underlined = static_cast<qsizetype>(shown.size());
        }
        shown += text[i];
    }
    line.Text = ToQString(shown);
    return line;
}

std::vector<Line> SplitLines(std::u16string_view text, UINT format)
{
    std::vector<Line> lines;
    while (true) {
        const bool isWhole = (format & DT_SINGLELINE) != 0;
        const std::size_t end = isWhole ? std::u16string_view::npos : text.find(u'\n');
        std::u16string_view line = text.substr(0, end);
        if (end != std::u16string_view::npos && line.ends_with(u'\r'))
            line.remove_suffix(1);
        lines.push_back((format & DT_NOPREFIX) != 0 ? Line{ToQString(line)} : TakePrefixes(line));
        if (end == std::u16string_view::npos)
            return lines;
        text.remove_prefix(end + 1);
    }
}

// Lines within a rectangle.
class TextBlock
{
public:
    TextBlock(DeviceContext& context, std::vector<Line> lines, const RECT& rect, UINT format)
        : m_context(context), m_font(FontTexts::Of(context.SelectedFont->Wanted())),
          m_lines(std::move(lines)), m_rect(rect), m_format(format)
    {
    }

    int Width() const
    {
        int width = 0;
        for (const Line& line : m_lines)
            width = std::max(width, m_font->Width(line.Text));
        return width;
    }

    int Height() const { return m_font->Height() * static_cast<int>(m_lines.size()); }

    void Draw() const
    {
        const Canvas& canvas = m_context.Drawing;
        const Box clip = m_context.Grid.Pixels(ToBox(m_rect)).Intersect(canvas.Clip());
        if (clip.IsEmpty())
            return;
        m_context.Drawn.Include(clip);
        const Canvas clipped(canvas.Target(), clip);
        int y = Top();
        for (const Line& line : m_lines) {
            DrawLine(clipped, line, y);
            y += m_font->Height();
        }
    }

private:
    int Top() const
    {
        const bool isCentred = (m_format & (DT_SINGLELINE | DT_VCENTER)) == (DT_SINGLELINE | DT_VCENTER);
        return m_rect.top + (isCentred ? (m_rect.bottom - m_rect.top - Height()) / 2 : 0);
    }

    void DrawLine(const Canvas& canvas, const Line& line, int y) const
    {
        const int space = m_rect.right - m_rect.left;
        const QString text = (m_format & DT_END_ELLIPSIS) != 0 ? m_font->Elided(line.Text, space) : line.Text;
        const int width = m_font->Width(text);
        const int x = m_rect.left + ((m_format & DT_CENTER) != 0 ? (space - width) / 2 : 0);
        const int baseline = y + m_font->Ascent();
        if (m_context.BackgroundMode == OPAQUE)
            FillUnits(canvas, {x, y, x + width, y + m_font->Height()}, m_context.BackgroundColor);
        m_font->Draw(canvas, m_context.Grid, {x, baseline}, text, ToPixel(m_context.TextColor));
        if (line.Underlined < 0 || line.Underlined >= text.size())
            return;
        const int start = x + m_font->Width(text.left(line.Underlined));
        const int end = x + m_font->Width(text.left(line.Underlined + 1));
        FillUnits(canvas, {start, baseline + 1, end, baseline + 2}, m_context.TextColor);
    }

    void FillUnits(const Canvas& canvas, const Box& units, COLORREF color) const
    {
        canvas.FillBox(m_context.PixelsOfStrip(units), ToPixel(color));
    }

    DeviceContext& m_context;
    std::shared_ptr<FontTexts> m_font;
    std::vector<Line> m_lines;
    RECT m_rect;
    UINT m_format;
};

} // namespace

} // namespace gdi

using gdi::DeviceContext;

int DrawTextW(HDC context, LPCWSTR text, int count, LPRECT rectangle, UINT format)
{
    if (context == nullptr || rectangle == nullptr)
        return 0;
    const bool isMeasured = (format & DT_CALCRECT) != 0;
    if (isMeasured) {
        rectangle->right = rectangle->left;
        rectangle->bottom = rectangle->top;
    }
    const std::u16string_view whole = gdi::Bounded(text, count);
    if (whole.empty() || !gdi::HasDesktop())
        return 0;
    const gdi::TextBlock block(*DeviceContext::FromHandle(context), gdi::SplitLines(whole, format),
                               *rectangle, format);
    if (isMeasured) {
        rectangle->right += block.Width();
        rectangle->bottom += block.Height();
    } else {
        block.Draw();
    }
    return block.Height();
}

BOOL GetTextExtentPoint32W(HDC context, LPCWSTR text, int length, LPSIZE size)
{
    if (context == nullptr || text == nullptr || length < 0 || size == nullptr)
        return FALSE;
    RECT rect{0, 0, 0, 0};
    DrawTextW(context, text, length, &rect, DT_CALCRECT | DT_NOPREFIX | DT_SINGLELINE);
    *size = {rect.right, rect.bottom};
    return TRUE;
}
