// The sample host's commands on layout files: what they print is fit for a terminal, they agree on what is
// damaged, and a comparison gives the same in both directions.
#include "Fuzz.h"

#include <TempPrefix.h>
#include <algorithm>
#include <host/Commands.h>
#include <host/LayoutFile.h>
#include <iostream>
#include <sstream>

using fuzz::Require;

namespace
{

int Compare(const std::string& oldPath, const std::string& newPath, std::ostringstream& out)
{
    out.str({});
    const int status = atlashost::CompareLayouts(oldPath.c_str(), newPath.c_str());
    Require((status == atlashost::Succeeded) == out.str().empty(), "a difference is told but not shown");
    return status;
}

} // namespace

void fuzz::Try(std::string_view bytes)
{
    static const test::TempPrefix prefix;
    static std::ostringstream out;
    static std::streambuf* const terminal = std::cout.rdbuf(out.rdbuf());
    static_cast<void>(terminal);
    const std::string path = prefix.Path() / "layout";
    const std::string otherPath = prefix.Path() / "other";
    std::string other(bytes);
    if (!other.empty())
        ++other[other.size() / 2];
    test::WriteWhole(path, bytes);
    test::WriteWhole(otherPath, other);

    const bool isGood = !atlashost::LayoutFile{std::string(bytes)}.Damage();
    const char* const paths[] = {path.c_str()};
    out.str({});
    Require((atlashost::CheckLayouts(paths) == atlashost::Succeeded) == isGood &&
                (atlashost::ShowLayouts(paths) == atlashost::Succeeded) == isGood,
            "the commands disagree on the damage");
    Require(std::ranges::none_of(out.view(), [](unsigned char c) { return c < ' ' && c != '\n'; }),
            "a control character goes to the terminal");
    if (!isGood)
        return;
    Require(Compare(path, path, out) == atlashost::Succeeded, "a file differs from itself");
    if (!atlashost::LayoutFile{other}.Damage())
        Require(Compare(path, otherPath, out) == Compare(otherPath, path, out), "one direction differs");
}
