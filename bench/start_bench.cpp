// The time from the start of a process to the first answer: a host with the library against one without.
#include "Suite.h"
#include "TempFolder.h"

#include <cstdlib>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

constexpr const char* withLibrary = "bench-start-with";
constexpr const char* withoutLibrary = "bench-start-without";

void RunProgram(const std::filesystem::path& program)
{
    std::string name = program;
    char* const arguments[] = {name.data(), nullptr};
    pid_t process = 0;
    int status = 0;
    if (posix_spawn(&process, program.c_str(), nullptr, nullptr, arguments, environ) != 0 ||
        waitpid(process, &status, 0) != process || !WIFEXITED(status) || WEXITSTATUS(status) != EXIT_SUCCESS)
        throw std::runtime_error(program.native() + " failed");
}

int Run(int argc, char** argv)
{
    bench::Suite suite(argc, argv, {"--benchmark_repetitions=51", "--benchmark_min_time=0.001"});
    const bench::TempFolder folder;
    setenv("STYLEATLAS_PREFIX", folder.Path().c_str(), 1);
    unsetenv("MENSURA_CATALOGUE"); // the catalogue that is installed
    const std::filesystem::path programs = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    for (const char* const name : {withLibrary, withoutLibrary}) {
        const std::filesystem::path program = programs / name;
        RunProgram(program); // the first run writes the settings
        suite.Add(name, 1, [program](benchmark::State& state) {
            for ([[maybe_unused]] const auto iteration : state)
                RunProgram(program);
        });
    }
    suite.Compare({.Name = "start, first answer, end", .Ours = withLibrary, .Peer = withoutLibrary});
    suite.Run();
    suite.PrintTable("Whole process", "a process");
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv)
{
    return bench::RunProgram(argc, argv, Run);
}
