#include "PictureFile.h"

#include "OutputFile.h"
#include "Texts.h"

#include <QBuffer>
#include <QByteArray>
#include <QPageLayout>
#include <QPageSize>
#include <QPdfWriter>
#include <QSvgGenerator>

#include <cmath>
#include <stdexcept>
#include <string>

namespace atlashost
{
namespace
{

constexpr double PointsOfInch = 72;
constexpr int PdfResolution = 1200; // so that letters are placed exactly

struct Suffix {
    const char* text;
    PictureFormat format;
};
constexpr Suffix Suffixes[] = {
    {".png", PictureFormat::Png}, {".svg", PictureFormat::Svg}, {".pdf", PictureFormat::Pdf}};

bool WritePng(QIODevice& device, const PictureSize& size, const Drawing& draw)
{
    return DrawImage(size, draw).save(&device, "PNG");
}

bool WriteSvg(QIODevice& device, const PictureSize& size, const Drawing& draw)
{
    QSvgGenerator generator;
    generator.setOutputDevice(&device);
    generator.setResolution(static_cast<int>(ScreenResolution));
    generator.setSize(size.Drawing());
    generator.setViewBox(QRect{{}, size.Drawing()});
    QPainter painter{&generator};
    draw(painter, size.Drawing());
    return painter.end();
}

bool WritePdf(QIODevice& device, const PictureSize& size, const Drawing& draw)
{
    QPdfWriter writer{&device};
    const QSizeF points = QSizeF{size.Drawing()} * PointsOfInch / ScreenResolution;
    writer.setPageSize(QPageSize{points, QPageSize::Point, {}, QPageSize::ExactMatch});
    writer.setPageMargins({});
    writer.setResolution(PdfResolution);
    QPainter painter{&writer};
    painter.scale(PdfResolution / ScreenResolution, PdfResolution / ScreenResolution);
    draw(painter, size.Drawing());
    return painter.end();
}

} // namespace

std::optional<PictureFormat> FormatOf(std::string_view path)
{
    const QByteArrayView text{path.data(), static_cast<qsizetype>(path.size())};
    for (const Suffix& suffix : Suffixes) {
        if (text.toByteArray().toLower().endsWith(suffix.text))
            return suffix.format;
    }
    return std::nullopt;
}

QImage DrawImage(const PictureSize& size, const Drawing& draw)
{
    QImage picture{size.pixels, QImage::Format_RGB32};
    if (picture.isNull())
        throw std::runtime_error{Text("the memory does not hold a picture of this size")};
    picture.fill(Qt::white); // a drawing of rounded size may leave a row of pixels
    const auto dots = static_cast<int>(std::lround(size.resolution * 1000 / MillimetresOfInch));
    QPainter painter{&picture};
    if (size.resolution != ScreenResolution)
        painter.scale(size.resolution / ScreenResolution, size.resolution / ScreenResolution);
    draw(painter, size.Drawing());
    painter.end();
    picture.setDotsPerMeterX(dots);
    picture.setDotsPerMeterY(dots);
    return picture;
}

void WritePicture(const char* path, PictureFormat format, const PictureSize& size, const Drawing& draw)
{
    const auto write = format == PictureFormat::Png   ? WritePng
                       : format == PictureFormat::Svg ? WriteSvg
                                                      : WritePdf;
    QByteArray bytes;
    QBuffer buffer{&bytes};
    if (!buffer.open(QIODevice::WriteOnly) || !write(buffer, size, draw))
        ThrowUnwritable(path, Text("the picture cannot be encoded"));
    OutputFile file{path};
    file.Write(bytes);
    file.Finish();
}

} // namespace atlashost
