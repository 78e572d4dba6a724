#pragma once

#include <string>
#include <string_view>

#include "platform/FileStore.h"
#include "simulation/ThisPc.h"
#include "text/TextCodec.h"
#include "window/form/UserDialogs.h"
#include "window/preview/Preview.h"

namespace tarvex {

/// What a PC is described with; owns none of it.
struct DescribeServices {
    UserDialogs& dialogs;
    FileStore& store;
    const TextCodec& codec;          ///< of the settings: one byte per character
    const ThisPc* thisPc = nullptr;  ///< null where no launcher runs
};

/// Writes a description of this PC to a folder that is asked for, as `tarvexcf collect` does: what
/// the launcher of the request would find here with these settings, saved or not. Tells what came
/// of it. Returns the path of the description; empty when there is none.
std::u16string DescribeThisPc(const PreviewRequest& request, const DescribeServices& services);

}  // namespace tarvex
