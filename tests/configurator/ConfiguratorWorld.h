#pragma once

#include "tests/support/FakeBinaryFiles.h"
#include "tests/support/FakeFileStore.h"
#include "tests/support/SyntheticLauncher.h"
#include "text/TextCodec1252.h"

namespace tarvex {

/// The configurator's files in memory: T.exe is an unbranded launcher.
struct ConfiguratorWorld {
    ConfiguratorWorld() { files.AddFile(u"T.exe", SyntheticLauncher().Build()); }

    FakeBinaryFiles files;
    FakeFileStore store{files};
    TextCodec1252 codec;
};

}  // namespace tarvex
