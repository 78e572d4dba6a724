#include "simulation/PcFile.h"

namespace tarvex {

ReadPc ReadPcFile(FileStore& files, std::u16string_view path) {
    static_cast<void>(files);
    ReadPc result;
    result.problems.push_back({std::u16string(path), 0, {}, u"Die Datei fehlt."});
    return result;
}

}  // namespace tarvex
