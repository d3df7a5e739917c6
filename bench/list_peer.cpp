// A bare loop over a measured file: reads it whole and keeps the number of each field.
#include <charconv>
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

int main(int argc, char** argv)
{
    if (argc != 3)
        return 1;
    std::ifstream file(argv[1], std::ios::binary | std::ios::ate);
    std::string content(static_cast<std::size_t>(file.tellg()), '\0');
    file.seekg(0);
    file.read(content.data(), static_cast<std::streamsize>(content.size()));
    std::vector<std::vector<double>> columns(static_cast<std::size_t>(std::stoi(argv[2])));
    const char* at = content.data() + content.find('\n') + 1;
    const char* const end = content.data() + content.size();
    while (at != end) {
        for (std::vector<double>& column : columns) {
            double value = 0;
            at = std::from_chars(at, end, value).ptr + 1;
            column.push_back(value);
        }
    }
    std::printf("%zu\n", columns.back().size());
    return 0;
}
