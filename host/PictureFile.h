// PictureFile.h: pictures on their way to the disk.
#pragma once

#include <QImage>

namespace atlashost
{

// Writes the picture as a PNG file, over whatever is there. Throws std::runtime_error, whose text names the
// path and the reason; the file can then be there in part.
void WritePng(const QImage& picture, const char* path);

} // namespace atlashost
