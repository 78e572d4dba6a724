#pragma once

#include "platform/FileStore.h"
#include "window/model/Document.h"

namespace tarvex {

/// Reads the icon file that the document names into it, unless it has its content already. A
/// relative path starts at the launcher's folder. Returns why it cannot be used.
Problems ReadIcon(FileStore& store, Document& document);

}  // namespace tarvex
