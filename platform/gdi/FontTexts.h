// A font as Qt has it, with the texts that were measured and drawn last. Measuring and drawing a text both
// shape it, which takes longer than all else in a row of a tree.
#pragma once

#include "PixelGrid.h"

#include <QCache>
#include <QFont>
#include <QFontMetrics>
#include <memory>
#include <vector>
#include <wingdi.h>

namespace gdi
{

class FontTexts
{
public:
    // Of a wanted font. Those of the thread with the application object are kept until the application's font
    // changes or the object ends.
    static std::shared_ptr<FontTexts> Of(const LOGFONTW& wanted);
    static std::shared_ptr<FontTexts> Of(HFONT handle);

    explicit FontTexts(const QFont& font) : m_font(font), m_metrics(font) {}

    // In units of the grid.
    int Ascent() const { return m_metrics.ascent(); }
    int Height() const { return m_metrics.height(); } // of a line
    int Width(const QString& text);
    QString Elided(const QString& text, int space); // with an ellipsis if it is wider

    // Draws on a canvas from a point on the base line.
    void Draw(const Canvas& canvas, const PixelGrid& grid, Point from, const QString& text, Pixel ink);

private:
    // How a text is drawn on a ground of one colour, and where between two pixels it begins.
    struct Drawing {
        QString Text;
        Pixel Ink;
        Pixel Ground;
        double Scale;
        double Left;
        double Top;

        friend bool operator==(const Drawing&, const Drawing&) = default;
        friend std::size_t qHash(const Drawing& drawing, std::size_t seed)
        {
            return qHashMulti(seed, drawing.Text, drawing.Ink, drawing.Ground);
        }
    };
    // The pixels that then differ from the ground, and all others in the box that holds them.
    struct Picture {
        Box Place; // relative to the pixel of the first point
        std::vector<Pixel> Pixels;
        bool IsWhole;
    };
    struct Elision {
        QString Text;
        int Space;

        friend bool operator==(const Elision&, const Elision&) = default;
        friend std::size_t qHash(const Elision& elision, std::size_t seed)
        {
            return qHashMulti(seed, elision.Text, elision.Space);
        }
    };
    static constexpr int maxTexts = 2048;
    static constexpr int maxPixels = 1 << 18;

    bool DrawPicture(const Canvas& canvas, Point pixel, const Drawing& drawing);
    const Picture* PictureOf(const Drawing& drawing);
    Picture MakePicture(const Drawing& drawing);
    void DrawByQt(const Canvas& canvas, const QPointF& from, const Drawing& drawing) const;

    QFont m_font;
    QFontMetrics m_metrics;
    QCache<QString, int> m_widths{maxTexts};
    QCache<Elision, QString> m_elisions{maxTexts};
    QCache<Drawing, Picture> m_pictures{maxPixels};
};

} // namespace gdi
