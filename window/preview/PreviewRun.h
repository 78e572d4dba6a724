#pragma once

#include "platform/FileStore.h"
#include "simulation/ThisPc.h"
#include "text/TextCodec.h"
#include "window/preview/Preview.h"

namespace tarvex {

/// What a preview is worked out with. Refers to objects of which no other thread uses the same.
struct PreviewServices {
    FileStore& store;
    const TextCodec& codec;          ///< of the settings: one byte per character
    const ThisPc* thisPc = nullptr;  ///< not owned; null where no launcher runs
};

/// Works out what a launcher with the settings would do when it is started by a double click: on
/// this PC, or on the described one as its description says. Files are looked for, which takes as
/// long as a server takes to answer; nothing is written, and the current folder stays.
PreviewResult RunPreview(const PreviewRequest& request, PreviewServices& services);

}  // namespace tarvex
