// Writes pictures.
#pragma once

#include <QImage>

namespace atlashost
{

// Writes the picture as a PNG file and replaces an old one. Throws std::runtime_error, which names the path
// and the reason; a part of the file may have been written then.
void WritePng(const QImage& picture, const char* path);

} // namespace atlashost
