#pragma once

#include "commands/CommandContext.h"
#include "commands/CommandLine.h"

namespace tarvex {

// One function for each command. It returns the exit code; what the system refuses is raised.

int Brand(const CommandContext& context, const CommandLine& line);
int Set(const CommandContext& context, const CommandLine& line);
int Unset(const CommandContext& context, const CommandLine& line);

int Get(const CommandContext& context, const CommandLine& line);
int Show(const CommandContext& context, const CommandLine& line);
int Diff(const CommandContext& context, const CommandLine& line);
int Export(const CommandContext& context, const CommandLine& line);
int Check(const CommandContext& context, const CommandLine& line);

int Fields(const CommandContext& context, const CommandLine& line);
int Presets(const CommandContext& context, const CommandLine& line);

}  // namespace tarvex
