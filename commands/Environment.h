#pragma once

#include "commands/Console.h"
#include "platform/FileStore.h"
#include "platform/FolderListing.h"
#include "text/TextCodec.h"

namespace tarvex {

/// What the configurator needs from the system. It owns none of it.
struct ConfiguratorEnvironment {
    FileStore& store;
    const TextCodec& codec;  ///< of the settings: one byte per character
    Console& console;
    const FolderListing& folders;
};

}  // namespace tarvex
