# Writes OUTPUT, a C++ source that defines ModuleResources as the bytes of INPUT.
file(READ ${INPUT} digits HEX)
string(REGEX REPLACE "(..)" "0x\\1," bytes "${digits}")
file(WRITE ${OUTPUT} "#include <platform/user/ResourceFile.h>

namespace
{
constexpr unsigned char bytes[] = {${bytes}};
} // namespace

const EmbeddedResources ModuleResources = {bytes, sizeof bytes};
")
