#pragma once

#include <string>
#include <vector>

#include "commands/CommandLine.h"
#include "commands/Console.h"
#include "configurator/Model.h"
#include "platform/FileStore.h"

namespace tarvex {

/// What the configurator needs from the system. It owns none of it.
struct ConfiguratorEnvironment {
    FileStore& store;
    const TextCodec& codec;  ///< of the settings: one byte per character
    Console& console;
};

/// The commands of the configurator's command line.
class Commands {
public:
    static constexpr int kDone = 0;
    static constexpr int kFailed = 1;
    static constexpr int kWrongUsage = 2;

    explicit Commands(const ConfiguratorEnvironment& environment) : environment_(environment) {}

    /// Does what the arguments after the program's name ask for and returns the exit code. Results
    /// go to the console's output, problems to its error output, one line each.
    int Run(const std::vector<std::u16string>& arguments);

private:
    int Execute(const CommandLine& line);
    int Brand(const CommandLine& line);
    int Set(const CommandLine& line);
    int Show(const CommandLine& line);
    int Export(const CommandLine& line);
    int Check(const CommandLine& line);
    int Fields(const CommandLine& line);

    /// Adds the values of NAME=VALUE to the settings. `place` names where they stand.
    Problems Assign(const CommandLine& line, std::u16string_view place, Settings& settings);
    Problems AssignOne(const Assignment& assignment, std::u16string_view place, Settings& settings);

    /// The values of a launcher file; what is wrong with the file is added to the problems.
    Settings Load(const std::u16string& file, bool& branded, Problems& problems);

    Problems RefuseExisting(const CommandLine& line) const;
    int Finish(const Problems& problems, std::u16string_view done);

    ConfiguratorEnvironment environment_;
};

}  // namespace tarvex
