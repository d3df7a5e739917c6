#include "Process.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

class Pipe
{
public:
    Pipe()
    {
        if (pipe2(m_ends.data(), O_CLOEXEC) != 0)
            throw std::runtime_error("no pipe");
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;
    ~Pipe()
    {
        close(m_ends[0]);
        CloseWriter();
    }
    int Reader() const { return m_ends[0]; }
    int Writer() const { return m_ends[1]; }
    void CloseWriter()
    {
        if (m_ends[1] >= 0)
            close(m_ends[1]);
        m_ends[1] = -1;
    }

private:
    std::array<int, 2> m_ends;
};

// Reads both pipes to their ends, whichever has something.
void Drain(const Pipe& first, std::string& firstText, const Pipe& second, std::string& secondText)
{
    std::array<pollfd, 2> waiting = {{{first.Reader(), POLLIN, 0}, {second.Reader(), POLLIN, 0}}};
    while (waiting[0].fd >= 0 || waiting[1].fd >= 0) {
        if (poll(waiting.data(), waiting.size(), -1) < 0)
            continue;
        for (pollfd& one : waiting) {
            if (one.fd < 0 || one.revents == 0)
                continue;
            std::array<char, 4096> buffer;
            const ssize_t got = read(one.fd, buffer.data(), buffer.size());
            if (got > 0)
                (&one == &waiting[0] ? firstText : secondText)
                    .append(buffer.data(), static_cast<std::size_t>(got));
            else if (got == 0 || errno != EINTR)
                one.fd = -1;
        }
    }
}

std::vector<char*> Pointers(std::vector<std::string>& texts)
{
    std::vector<char*> pointers;
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

std::vector<std::string> Environment(const std::vector<std::string>& settings)
{
    std::vector<std::string> all = settings;
    for (char** variable = environ; *variable != nullptr; ++variable) {
        const std::string text = *variable;
        const std::string name = text.substr(0, text.find('=') + 1);
        bool isSet = false;
        for (const std::string& setting : settings)
            isSet = isSet || setting.starts_with(name);
        if (!isSet)
            all.push_back(text);
    }
    return all;
}

} // namespace

namespace test
{

Outcome Run(const std::vector<std::string>& arguments, const std::vector<std::string>& environment)
{
    Pipe output;
    Pipe errors;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, output.Writer(), STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, errors.Writer(), STDERR_FILENO);
    std::vector<std::string> words = arguments;
    std::vector<std::string> variables = Environment(environment);
    pid_t child = 0;
    const int result = posix_spawnp(&child, arguments[0].c_str(), &actions, nullptr, Pointers(words).data(),
                                    Pointers(variables).data());
    posix_spawn_file_actions_destroy(&actions);
    if (result != 0)
        throw std::runtime_error("cannot run " + arguments[0]);

    Outcome outcome;
    output.CloseWriter();
    errors.CloseWriter();
    Drain(output, outcome.Output, errors, outcome.Errors);
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    outcome.Status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    return outcome;
}

} // namespace test
