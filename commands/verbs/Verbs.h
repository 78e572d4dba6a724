#pragma once

#include "commands/CommandContext.h"
#include "commands/CommandLine.h"

namespace tarvex {

// One function for each command. It returns the exit code; what the system refuses is raised.

int Brand(CommandContext& context, const CommandLine& line);
int Set(CommandContext& context, const CommandLine& line);
int Unset(CommandContext& context, const CommandLine& line);

int Get(CommandContext& context, const CommandLine& line);
int Show(CommandContext& context, const CommandLine& line);
int Diff(CommandContext& context, const CommandLine& line);
int Export(CommandContext& context, const CommandLine& line);
int Check(CommandContext& context, const CommandLine& line);

int Simulate(CommandContext& context, const CommandLine& line);
int Collect(CommandContext& context, const CommandLine& line);

int Fields(CommandContext& context, const CommandLine& line);
int Presets(CommandContext& context, const CommandLine& line);

}  // namespace tarvex
