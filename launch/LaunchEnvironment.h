#pragma once

#include "platform/FileSystem.h"
#include "platform/ProgramInfo.h"
#include "platform/Registry.h"
#include "platform/Ui.h"
#include "text/TextCodec.h"

namespace tarvex {

/// What the launch engine needs from the system. It refers to objects that outlive the engine and
/// owns none of them.
struct LaunchEnvironment {
    const Registry& registry;
    const FileSystem& files;
    const TextCodec& codec;  ///< the system's ANSI code page, for registry texts and files
    /// One byte per character, for the scrambled settings: the system's page, or 1252 where the
    /// system's page has characters of several bytes.
    const TextCodec& settingsCodec;
    Ui& ui;
    const ProgramInfo& program;
};

}  // namespace tarvex
