// The cost of a host that only asks for a style: the time from its start to the answer, and until its end CPU
// time, memory and libraries, against the same process without the library.
#include "Suite.h"
#include "TempFolder.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <set>
#include <spawn.h>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

constexpr const char* withLibrary = "bench-start-with";
constexpr const char* withoutLibrary = "bench-start-without";
constexpr int rounds = 101;
constexpr double maxTimeToAnswer = 3e6; // nanoseconds

struct Cost {
    double Elapsed = 0;    // nanoseconds, to the answer
    double ToAnswer = 0;   // nanoseconds of CPU time
    double CpuTime = 0;    // nanoseconds, of the user and of the system
    double PeakMemory = 0; // kilobytes
    double Libraries = 0;
    double QtLibraries = 0;
};

double PeakMemory(const std::filesystem::path& process)
{
    std::ifstream status(process / "status");
    std::string name;
    double value = 0;
    while (status >> name && name != "VmHWM:") {
    }
    status >> value;
    return value;
}

// What the process has had of the processor, in nanoseconds.
double RunningTime(const std::filesystem::path& process)
{
    double time = 0;
    std::ifstream(process / "schedstat") >> time;
    return time;
}

std::set<std::string> Libraries(const std::filesystem::path& process)
{
    std::ifstream maps(process / "maps");
    std::set<std::string> names;
    for (std::string line; std::getline(maps, line);) {
        const std::string name = line.substr(line.rfind('/') + 1);
        if (line.find('/') != std::string::npos && name.find(".so") != std::string::npos)
            names.insert(name);
    }
    return names;
}

double Nanoseconds(const timeval& time)
{
    return static_cast<double>(time.tv_sec) * 1e9 + static_cast<double>(time.tv_usec) * 1e3;
}

// Examines the program's process once it has reported its answer, then lets it end.
Cost RunProgram(std::string program)
{
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0)
        throw std::runtime_error("no pair of sockets");
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    char* const arguments[] = {program.data(), nullptr};
    const auto start = std::chrono::steady_clock::now();
    pid_t process = 0;
    const int failure = posix_spawn(&process, program.c_str(), &actions, nullptr, arguments, environ);
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);

    Cost cost;
    char newLine = 0;
    const bool hasAnswer = failure == 0 && read(ends[0], &newLine, 1) == 1;
    cost.Elapsed = std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - start).count();
    if (hasAnswer) {
        const std::filesystem::path folder = "/proc/" + std::to_string(process);
        const std::set<std::string> libraries = Libraries(folder);
        cost.Libraries = static_cast<double>(libraries.size());
        cost.QtLibraries = static_cast<double>(std::ranges::count_if(
            libraries, [](const std::string& name) { return name.starts_with("libQt"); }));
        cost.PeakMemory = PeakMemory(folder);
        cost.ToAnswer = RunningTime(folder);
    }
    close(ends[0]);
    int status = 0;
    rusage usage{};
    if (!hasAnswer || wait4(process, &status, 0, &usage) != process || status != 0)
        throw std::runtime_error(program + " failed");
    cost.CpuTime = Nanoseconds(usage.ru_utime) + Nanoseconds(usage.ru_stime);
    return cost;
}

double Low(const std::vector<Cost>& costs, double Cost::*member)
{
    std::vector<double> results;
    for (const Cost& cost : costs)
        results.push_back(cost.*member);
    return bench::LowResult(results);
}

int Run(int argc, char** argv)
{
    bench::Suite suite(argc, argv);
    const bench::TempFolder folder;
    setenv("STYLEATLAS_PREFIX", folder.Path().c_str(), 1);
    unsetenv("MENSURA_CATALOGUE"); // use the installed catalogue
    const std::filesystem::path programs = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    RunProgram(programs / withLibrary); // the first run writes the settings
    std::vector<Cost> with;
    std::vector<Cost> without;
    for (int i = 0; i < rounds; ++i) {
        with.push_back(RunProgram(programs / withLibrary));
        without.push_back(RunProgram(programs / withoutLibrary));
    }
    const std::pair<const char*, double Cost::*> members[] = {{"elapsed to the answer, ns", &Cost::Elapsed},
                                                              {"CPU time to the answer, ns", &Cost::ToAnswer},
                                                              {"CPU time, ns", &Cost::CpuTime},
                                                              {"peak memory, kB", &Cost::PeakMemory},
                                                              {"libraries mapped", &Cost::Libraries}};
    for (const auto& [name, member] : members) {
        const std::string peer = std::string("process alone, ") + name;
        suite.Record(name, Low(with, member));
        suite.Record(peer, Low(without, member));
        suite.Compare({.Name = name, .Ours = name, .Peer = peer});
    }
    const std::string toAnswer = members[1].first;
    suite.Compare({.Name = toAnswer, .Ours = toAnswer, .Peer = {}, .Goal = maxTimeToAnswer});
    const std::string qt = "libraries of Qt mapped";
    suite.Record(qt, Low(with, &Cost::QtLibraries));
    suite.Compare({.Name = qt, .Ours = qt, .Peer = {}});
    suite.PrintTable("A process that asks for one style and ends", "in the units named");
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv)
{
    return bench::RunProgram(argc, argv, Run);
}
