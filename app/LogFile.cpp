#include "app/LogFile.h"

#include "launch/PathHelpers.h"

namespace tarvex {

LogFile::LogFile(FileSystem& files, const Clock& clock, const TextCodec& codec,
                 const ProgramInfo& program)
    : files_(files), clock_(clock), codec_(codec), path_(CompanionPath(program, u".log")) {}

void LogFile::Append(std::u16string_view entry) noexcept {
    try {
        std::u16string lines = u"[" + clock_.GeneralDateTime() + u"]\r\n";
        lines.append(entry).append(u"\r\n\r\n");
        files_.Append(path_, codec_.ToAnsi(lines));
    } catch (...) {
        // A launch that went well must not end in an error box for want of its entry.
    }
}

}  // namespace tarvex
