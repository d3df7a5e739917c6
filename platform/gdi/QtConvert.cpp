#include "QtConvert.h"

#include <QFontInfo>
#include <TextCopy.h>
#include <algorithm>

namespace gdi
{

namespace
{

constexpr std::int64_t maxHeight = 1000;

// A line is about a quarter higher than its letters.
std::int64_t LetterHeight(LONG height)
{
    constexpr int lineParts = 5;
    constexpr int letterParts = 4;
    if (height == 0)
        return commonFontHeight;
    return height < 0 ? -std::int64_t{height} : std::int64_t{height} * letterParts / lineParts;
}

} // namespace

QFont ToQFont(const LOGFONTW& wanted)
{
    QFont font;
    const std::u16string_view name(wanted.lfFaceName, LF_FACESIZE);
    if (const std::size_t length = std::min(name.find(u'\0'), name.size()); length > 0)
        font.setFamily(ToQString(name.substr(0, length)));
    font.setPixelSize(
        static_cast<int>(std::clamp<std::int64_t>(LetterHeight(wanted.lfHeight), 1, maxHeight)));
    font.setBold(wanted.lfWeight >= FW_BOLD);
    font.setItalic(wanted.lfItalic != 0);
    font.setUnderline(wanted.lfUnderline != 0);
    return font;
}

QFont ToQFont(HFONT handle)
{
    const auto* const font = dynamic_cast<const Font*>(GdiObject::FromHandle(handle));
    return font != nullptr ? ToQFont(font->Wanted()) : QFont();
}

LOGFONTW ToLogFont(const QFont& font)
{
    LOGFONTW result{};
    result.lfHeight = -QFontInfo(font).pixelSize();
    result.lfWeight = font.bold() ? FW_BOLD : FW_NORMAL;
    result.lfItalic = font.italic() ? 1 : 0;
    CopyText(ToView(font.family()), result.lfFaceName, LF_FACESIZE);
    return result;
}

} // namespace gdi
