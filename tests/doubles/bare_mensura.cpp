// A unit library without its entry points but for the one that no host calls.
extern "C" __attribute__((visibility("default"))) const char16_t* MensuraGetNameW()
{
    return u"";
}
