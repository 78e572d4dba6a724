#pragma once

#include "platform/FileSystem.h"
#include "platform/ProgramInfo.h"
#include "platform/Registry.h"
#include "platform/TextCodec.h"
#include "platform/Ui.h"

namespace tarvex {

/// What the launch engine needs from the system. It refers to objects that outlive the engine and owns
/// none of them.
struct LaunchEnvironment {
    const Registry& registry;
    const FileSystem& files;
    const TextCodec& codec;
    Ui& ui;
    const ProgramInfo& program;
};

}  // namespace tarvex
