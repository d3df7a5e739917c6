// The editor as part of the program, which then loads no module for it.
#include <dialogs/EditorModule.h>
#include <platform/system/BuiltInModule.h>

namespace
{

const ModuleExport exports[] = {{k_EditorEntry, reinterpret_cast<void*>(&RunStyleAtlasEditor)},
                                {nullptr, nullptr}};
const BuiltInModule module(k_EditorModule, exports);

} // namespace
