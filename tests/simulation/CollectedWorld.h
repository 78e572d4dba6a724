#pragma once

#include <string>

#include "simulation/ThisPc.h"
#include "tests/support/FakeFileSystem.h"
#include "tests/support/FakeRegistry.h"
#include "text/TextCodec1252.h"

namespace tarvex {

/// A computer in memory to describe.
class FakeThisPc : public ThisPc {
public:
    const Registry& RegistryView() const override { return registry; }
    const FileSystem& Files() const override { return files; }
    const TextCodec& Codec() const override { return codec; }
    std::int32_t CodePage() const override { return 1252; }
    WindowsVersion Version() const override { return {6, 1}; }
    std::u16string FullPath(std::u16string_view path) const override {
        return std::u16string(path);
    }

    FakeRegistry registry;
    FakeFileSystem files;
    TextCodec1252 codec;
};

}  // namespace tarvex
