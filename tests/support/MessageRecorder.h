// Hears the message boxes of a test in place of the user.
#pragma once

#include <platform/system/MessageBoxHook.h>

#include <string>
#include <vector>

namespace test
{

struct Message {
    std::u16string Text;
    std::u16string Caption;
    UINT Type;

    friend bool operator==(const Message&, const Message&) = default;
};

// Answers every message box with IDOK at once and keeps what it said, as long as it lives. One at a time.
class MessageRecorder
{
public:
    MessageRecorder() : m_before(SetMessageBoxHook(&Record)) { s_messages.clear(); }
    MessageRecorder(const MessageRecorder&) = delete;
    MessageRecorder& operator=(const MessageRecorder&) = delete;
    ~MessageRecorder() { SetMessageBoxHook(m_before); }

    const std::vector<Message>& Messages() const { return s_messages; } // in the order of their showing

private:
    static int Record(HWND /*owner*/, LPCWSTR text, LPCWSTR caption, UINT type)
    {
        s_messages.push_back({text, caption, type});
        return IDOK;
    }

    static inline std::vector<Message> s_messages;

    MessageBoxHook m_before;
};

} // namespace test
