// The options of the tool's command line.
#pragma once

#include <map>

namespace atlaslayout
{

enum class Option : int {
    Help = 1,
    Version,
    Host,
    Column,
    Columns,
    Quantities,
    Against,
    Json,
    Output,
    Ours,
    Theirs
};

class Options
{
public:
    // Null if the option is not there. A switch has an empty value.
    const char* Find(Option option) const
    {
        const auto found = m_values.find(option);
        return found == m_values.end() ? nullptr : found->second;
    }
    bool Has(Option option) const { return m_values.contains(option); }

    // The number that an option gives, or the default. Throws UsageError unless it is one from 0 to max.
    int NumberOf(Option option, int byDefault, int max) const;

    // Throws UsageError for an option that is there and not among the bits of the allowed ones.
    void Require(unsigned allowed) const;

    void Set(Option option, const char* value) { m_values[option] = value; }

private:
    std::map<Option, const char*> m_values;
};

constexpr unsigned BitOf(Option option)
{
    return 1u << static_cast<int>(option);
}

// Reads the options and moves the words behind them. Returns the position of the first word. Throws
// UsageError.
int ReadOptions(int argc, char** argv, Options& options);

} // namespace atlaslayout
