// For the leak sanitizer: what the desktop's libraries keep until the process ends is no leak of ours.
extern "C" [[gnu::visibility("default")]] const char* __lsan_default_suppressions()
{
    return "leak:libfontconfig\nleak:libdbus\n";
}
