#pragma once
#include <functional>
#include <vector>

#include <CLI/CLI.hpp>

namespace igd {

// Each family of subcommands registers its leaf commands here with what runs them; main runs the
// one the user named and exits with its answer.
class CommandTable {
public:
    void Add(CLI::App* command, std::function<int()> run) { commands_.push_back({command, std::move(run)}); }

    // The exit code of the parsed command; 1 when none was parsed (CLI11 has already said why).
    int RunParsed() const {
        for (const Entry& entry : commands_)
            if (entry.command->parsed())
                return entry.run();
        return 1;
    }

private:
    struct Entry {
        CLI::App* command;
        std::function<int()> run;
    };
    std::vector<Entry> commands_;
};

} // namespace igd
