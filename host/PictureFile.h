// Writes pictures.
#pragma once

#include <QImage>
#include <QPainter>
#include <QSize>
#include <QSizeF>

#include <functional>
#include <optional>
#include <string_view>

namespace atlashost
{

enum class PictureFormat { Png, Svg, Pdf };

// By the path's suffix, in any case.
std::optional<PictureFormat> FormatOf(std::string_view path);

constexpr double ScreenResolution = 96; // units of a drawing in an inch
constexpr double MillimetresOfInch = 25.4;

struct PictureSize {
    QSize pixels;                         // of the PNG file
    double resolution = ScreenResolution; // pixels in an inch

    // In units of the drawing.
    QSize Drawing() const { return (QSizeF{pixels} * ScreenResolution / resolution).toSize(); }
};

// Draws in units of 1/96 inch from the painter's origin into the given size.
using Drawing = std::function<void(QPainter& painter, QSize size)>;

// Throws std::runtime_error if the memory doesn't hold it.
QImage DrawImage(const PictureSize& size, const Drawing& draw);

// Writes a file in whole or throws std::runtime_error, which names the path and the reason. An old file is
// replaced at the end, and stays as it is until then; a pipe or device is written to.
void WritePicture(const char* path, PictureFormat format, const PictureSize& size, const Drawing& draw);

} // namespace atlashost
