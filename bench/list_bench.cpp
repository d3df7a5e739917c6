// The sample host that lists a measured file of a million lines, against a bare loop that reads its numbers:
// two processes, from start to end.
#include "Suite.h"
#include "TempFolder.h"

#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <spawn.h>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

constexpr int lines = 1'000'000;
constexpr int rounds = 15;
constexpr double timeGoal = 1.7;
constexpr double memoryGoal = 1.25;

struct Cost {
    std::vector<double> CpuTime;    // nanoseconds, of the user and of the system
    std::vector<double> PeakMemory; // kilobytes
};

void WriteMeasuredFile(const std::filesystem::path& path)
{
    std::ofstream file(path);
    file << "Time,f,T,Wind,Temp\n";
    for (int i = 0; i < lines; ++i)
        file << i << ',' << 49.5 + i % 1000 * 0.001 << ',' << 20 + i % 77 * 0.25 << ',' << i % 900 << ','
             << i % 1013 * 0.1 << '\n';
}

double Nanoseconds(const timeval& time)
{
    return static_cast<double>(time.tv_sec) * 1e9 + static_cast<double>(time.tv_usec) * 1e3;
}

// Runs a program without output, and adds what it cost.
void RunProgram(std::vector<std::string> command, Cost& cost)
{
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    for (const int descriptor : {STDOUT_FILENO, STDERR_FILENO})
        posix_spawn_file_actions_addopen(&actions, descriptor, "/dev/null", O_WRONLY, 0);
    std::vector<char*> arguments;
    for (std::string& argument : command)
        arguments.push_back(argument.data());
    arguments.push_back(nullptr);
    pid_t process = 0;
    const int failure =
        posix_spawn(&process, command.front().c_str(), &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    int status = 0;
    rusage usage{};
    if (failure != 0 || wait4(process, &status, 0, &usage) != process || status != 0)
        throw std::runtime_error(command.front() + " failed");
    cost.CpuTime.push_back(Nanoseconds(usage.ru_utime) + Nanoseconds(usage.ru_stime));
    cost.PeakMemory.push_back(static_cast<double>(usage.ru_maxrss));
}

int Run(int argc, char** argv)
{
    bench::Suite suite(argc, argv);
    const bench::TempFolder folder;
    setenv("STYLEATLAS_PREFIX", folder.Path().c_str(), 1);
    unsetenv("MENSURA_CATALOGUE"); // use the installed catalogue
    const std::filesystem::path programs = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    const std::string file = folder.Path() / "measured.csv";
    WriteMeasuredFile(file);
    Cost ours;
    Cost peers;
    for (int i = 0; i < rounds; ++i) {
        RunProgram({programs / "atlas-host", "list", file}, ours);
        RunProgram({programs / "bench-list-peer", file, "5"}, peers);
    }
    const auto compare = [&](const std::string& name, std::vector<double> Cost::*member, double goal) {
        const std::string peer = "bare loop, " + name;
        suite.Record(name, bench::LowResult(ours.*member));
        suite.Record(peer, bench::LowResult(peers.*member));
        suite.Compare({.Name = name, .Ours = name, .Peer = peer, .Goal = goal});
    };
    compare("CPU time, ns", &Cost::CpuTime, timeGoal);
    compare("peak memory, kB", &Cost::PeakMemory, memoryGoal);
    suite.PrintTable("The list of a measured file of a million lines", "in the units named");
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv)
{
    return bench::RunProgram(argc, argv, Run);
}
