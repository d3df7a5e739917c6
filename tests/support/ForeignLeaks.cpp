// The leak sanitizer asks for it: what the libraries of the desktop keep for themselves until the process
// ends is no leak of ours.
extern "C" [[gnu::visibility("default")]] const char* __lsan_default_suppressions()
{
    return "leak:libfontconfig\nleak:libdbus\n";
}
