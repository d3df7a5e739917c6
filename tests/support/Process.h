// Runs another program and gathers what it prints.
#pragma once

#include "ChildProcess.h"
#include "TempPrefix.h"

#include <cstdio>
#include <memory>
#include <vector>

namespace test
{

struct Outcome {
    int Status = 0; // exit status, or the number of the signal that ended it, with a minus
    std::string Output;
    std::string Errors;
};

// Runs arguments[0] (found on the search path) to its end, with "NAME=VALUE" set in the environment and names
// without a value removed. What it prints goes to the descriptor, if one is given.
inline Outcome Run(const std::vector<std::string>& arguments, const std::vector<std::string>& environment,
                   int output = -1)
{
    constexpr int notFound = 99;
    using TempFile = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;
    const TempFile printed(std::tmpfile(), std::fclose);
    const TempFile errors(std::tmpfile(), std::fclose);
    if (!printed || !errors)
        throw std::system_error(errno, std::generic_category(), "tmpfile");
    ChildProcess child([&] {
        dup2(output >= 0 ? output : fileno(printed.get()), STDOUT_FILENO);
        dup2(fileno(errors.get()), STDERR_FILENO);
        for (const std::string& setting : environment)
            putenv(const_cast<char*>(setting.c_str()));
        std::vector<char*> words;
        for (const std::string& argument : arguments)
            words.push_back(const_cast<char*>(argument.c_str()));
        words.push_back(nullptr);
        execvp(words[0], words.data());
        return notFound;
    });
    const int status = child.Wait();
    const auto contents = [](const TempFile& file) {
        return ReadWhole("/proc/self/fd/" + std::to_string(fileno(file.get())));
    };
    return {status, contents(printed), contents(errors)};
}

inline const bool isOnX = std::getenv("TEST_ON_X") != nullptr;

// Runs tests of this program on an X server of their own, with isOnX. Gives what they print if they fail.
inline std::string FailuresOnX(const std::string& tests)
{
    const std::string program = std::filesystem::read_symlink("/proc/self/exe");
    const Outcome outcome =
        Run({"xvfb-run", "--auto-servernum", "--server-args=-noreset", program, "--gtest_filter=" + tests},
            {"TEST_ON_X=1", "QT_QPA_PLATFORM=xcb", "WAYLAND_DISPLAY"});
    return outcome.Status == 0 ? "" : outcome.Output + outcome.Errors;
}

} // namespace test
