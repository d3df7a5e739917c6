#include "FontTexts.h"

#include "QtConvert.h"

#include <QPainter>
#include <QThread>
#include <cmath>
#include <cstring>

namespace gdi
{

namespace
{

constexpr std::size_t maxFonts = 8;
constexpr qsizetype maxLength = 256; // of a text with a picture
constexpr double finestPlace = 64;   // parts of a pixel that Qt knows

struct Entry {
    LOGFONTW Wanted;
    QFont Common; // the application's, which gives what isn't wanted
    std::shared_ptr<FontTexts> Texts;
};

// Never destroyed: drawing may go on while static objects are.
std::vector<Entry>& Entries()
{
    static auto& entries = *new std::vector<Entry>;
    return entries;
}

void ForgetEntries()
{
    Entries().clear();
}

bool IsThreadOfApplication()
{
    return QThread::currentThread() == QCoreApplication::instance()->thread();
}

// Whether the place of each pixel between those of the screen recurs.
bool IsCommonScale(double scale)
{
    return std::floor(scale * finestPlace) == scale * finestPlace;
}

} // namespace

std::shared_ptr<FontTexts> FontTexts::Of(const LOGFONTW& wanted)
{
    if (!IsThreadOfApplication())
        return std::make_shared<FontTexts>(ToQFont(wanted));
    std::vector<Entry>& entries = Entries();
    const QFont common = QGuiApplication::font();
    for (const Entry& entry : entries) {
        if (std::memcmp(&entry.Wanted, &wanted, sizeof wanted) == 0 && entry.Common == common)
            return entry.Texts;
    }
    if (entries.empty()) {
        qRemovePostRoutine(&ForgetEntries);
        qAddPostRoutine(&ForgetEntries);
    } else if (entries.size() == maxFonts) {
        entries.erase(entries.begin());
    }
    entries.push_back({wanted, common, std::make_shared<FontTexts>(ToQFont(wanted))});
    return entries.back().Texts;
}

std::shared_ptr<FontTexts> FontTexts::Of(HFONT handle)
{
    const auto* const font = dynamic_cast<const gdi::Font*>(GdiObject::FromHandle(handle));
    return font != nullptr ? Of(font->Wanted()) : std::make_shared<FontTexts>(QFont());
}

int FontTexts::Width(const QString& text)
{
    if (const int* const known = m_widths.object(text))
        return *known;
    const int width = m_metrics.horizontalAdvance(text);
    m_widths.insert(text, new int(width));
    return width;
}

QString FontTexts::Elided(const QString& text, int space)
{
    if (Width(text) <= space) // Qt alone would shorten a text that is too wide by a fraction of a pixel
        return text;
    const Elision elision{text, space};
    if (const QString* const known = m_elisions.object(elision))
        return *known;
    QString shown = m_metrics.elidedText(text, Qt::ElideRight, space);
    m_elisions.insert(elision, new QString(shown));
    return shown;
}

// The pixels depend on the ground too, as Qt blends the edges of letters with it.
void FontTexts::Draw(const Canvas& canvas, const PixelGrid& grid, Point from, const QString& text, Pixel ink)
{
    const QPointF place(static_cast<double>(from.X) * grid.Scale() + grid.Left(),
                        static_cast<double>(from.Y) * grid.Scale() + grid.Top());
    const Box& clip = canvas.Clip();
    if (clip.IsEmpty())
        return;
    const Point pixel{static_cast<std::int64_t>(std::floor(place.x())),
                      static_cast<std::int64_t>(std::floor(place.y()))};
    const Drawing drawing{text,
                          ink,
                          canvas.At(clip.Left, clip.Top),
                          grid.Scale(),
                          place.x() - static_cast<double>(pixel.X),
                          place.y() - static_cast<double>(pixel.Y)};
    const bool mayHavePicture =
        text.size() <= maxLength && IsCommonScale(grid.Scale()) && IsThreadOfApplication();
    if (!mayHavePicture || !DrawPicture(canvas, pixel, drawing))
        DrawByQt(canvas, place, drawing);
}

// Fails if there is anything but the ground where the picture comes.
bool FontTexts::DrawPicture(const Canvas& canvas, Point pixel, const Drawing& drawing)
{
    const Picture* const picture = PictureOf(drawing);
    if (picture == nullptr || !picture->IsWhole)
        return false;
    const Box& place = picture->Place;
    const Point first{place.Left + pixel.X, place.Top + pixel.Y};
    const std::int64_t width = place.Right - place.Left;
    const Box shown =
        Box{first.X, first.Y, place.Right + pixel.X, place.Bottom + pixel.Y}.Intersect(canvas.Clip());
    if (!canvas.IsFilled(shown, drawing.Ground))
        return false;
    for (std::int64_t y = shown.Top; y < shown.Bottom; ++y) {
        const Pixel* const row = picture->Pixels.data() + (y - first.Y) * width - first.X;
        std::copy(row + shown.Left, row + std::max(shown.Left, shown.Right), canvas.Row(y) + shown.Left);
    }
    return true;
}

const FontTexts::Picture* FontTexts::PictureOf(const Drawing& drawing)
{
    if (const Picture* const known = m_pictures.object(drawing))
        return known;
    auto made = std::make_unique<Picture>(MakePicture(drawing));
    const auto cost = static_cast<qsizetype>(made->Pixels.size()) + 1;
    const Picture* const picture = made.get();
    return m_pictures.insert(drawing, made.release(), cost) ? picture : nullptr;
}

// With a margin for letters that reach beyond their line; a text that reaches further has no picture.
FontTexts::Picture FontTexts::MakePicture(const Drawing& drawing)
{
    const auto pixels = [&drawing](int units) { return static_cast<int>(std::ceil(units * drawing.Scale)); };
    const int margin = pixels(Height());
    const int width = pixels(Width(drawing.Text)) + 2 * margin;
    const int height = 3 * margin;
    const Point origin{margin, margin + pixels(Ascent())};
    std::vector<Pixel> all(static_cast<std::size_t>(width) * static_cast<std::size_t>(height),
                           drawing.Ground);
    const Canvas canvas({all.data(), width, height, width}, {0, 0, width, height});
    DrawByQt(canvas,
             {static_cast<double>(origin.X) + drawing.Left, static_cast<double>(origin.Y) + drawing.Top},
             drawing);

    Box box = noBox;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            if (canvas.At(x, y) != drawing.Ground)
                box.Include({x, y, x + 1, y + 1});
        }
    }
    Picture picture{{0, 0, 0, 0}, {}, box.IsEmpty() || box.IsWithin({1, 1, width - 1, height - 1})};
    if (box.IsEmpty() || !picture.IsWhole)
        return picture;
    picture.Place = {box.Left - origin.X, box.Top - origin.Y, box.Right - origin.X, box.Bottom - origin.Y};
    for (std::int64_t y = box.Top; y < box.Bottom; ++y)
        picture.Pixels.insert(picture.Pixels.end(), canvas.Row(y) + box.Left, canvas.Row(y) + box.Right);
    return picture;
}

void FontTexts::DrawByQt(const Canvas& canvas, const QPointF& from, const Drawing& drawing) const
{
    const Box& clip = canvas.Clip();
    if (clip.IsEmpty())
        return;
    // Of the clip box alone: a surface may have no memory outside of it.
    QImage image = ToQImage({canvas.Row(clip.Top) + clip.Left, static_cast<int>(clip.Right - clip.Left),
                             static_cast<int>(clip.Bottom - clip.Top), canvas.Target().Stride});
    QPainter painter(&image);
    painter.translate(from - QPointF(static_cast<double>(clip.Left), static_cast<double>(clip.Top)));
    painter.scale(drawing.Scale, drawing.Scale);
    painter.setFont(m_font);
    painter.setPen(QColor::fromRgb(drawing.Ink));
    painter.drawText(0, 0, drawing.Text);
}

} // namespace gdi
