#include "LayoutTool.h"

#include "Commands.h"
#include "Texts.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <stdexcept>
#include <string_view>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace atlashost
{
namespace
{

constexpr const char* ToolName = "atlas-layout";

[[noreturn]] void ThrowStartError(int error)
{
    throw std::runtime_error{Text("%1 cannot be started: %2", {ToolName, std::strerror(error)})};
}

std::string ToolPath()
{
    std::error_code error;
    std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    if (error) // an empty path would lead to a tool in the current folder
        ThrowStartError(error.value());
    return program.replace_filename(ToolName);
}

// The arguments as exec takes them, the name of the tool before them.
template <class Arguments> std::vector<char*> WithName(const Arguments& arguments)
{
    std::vector<char*> words{const_cast<char*>(ToolName)};
    for (const auto& argument : arguments)
        words.push_back(const_cast<char*>(std::data(argument)));
    words.push_back(nullptr);
    return words;
}

std::string ReadAll(int descriptor)
{
    std::string text;
    std::array<char, 1024> buffer;
    for (;;) {
        const ssize_t count = read(descriptor, buffer.data(), buffer.size());
        if (count > 0)
            text.append(buffer.data(), static_cast<std::size_t>(count));
        else if (count == 0 || errno != EINTR)
            return text;
    }
}

} // namespace

ToolResult RunLayoutTool(const std::vector<std::string>& arguments, ToolErrors errors)
{
    const std::string path = ToolPath();
    std::signal(SIGCHLD, SIG_DFL); // where a parent has left it ignored, the tool's exit status would be lost
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        ThrowStartError(errno);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    if (errors == ToolErrors::InOutput)
        posix_spawn_file_actions_adddup2(&actions, ends[1], STDERR_FILENO);
    pid_t child = 0;
    const int error =
        posix_spawn(&child, path.c_str(), &actions, nullptr, WithName(arguments).data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    ToolResult result{Failed, error == 0 ? ReadAll(ends[0]) : std::string{}};
    close(ends[0]);
    if (error != 0)
        ThrowStartError(error);
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    if (WIFEXITED(status))
        result.status = WEXITSTATUS(status);
    return result;
}

void BecomeLayoutTool(std::span<const char* const> arguments)
{
    const std::vector<std::string_view> words{arguments.begin(), arguments.end()};
    execv(ToolPath().c_str(), WithName(words).data());
    ThrowStartError(errno);
}

} // namespace atlashost
