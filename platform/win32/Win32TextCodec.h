#pragma once

#include "text/TextCodec.h"

namespace tarvex {

/// The text in a code page, the system's own unless another is named, for texts that are only read,
/// such as those of a message box: a character that the code page does not hold becomes the letter
/// nearest to it, "?" only when there is none. Never for what names a file: that takes a codec.
std::string ToNearestAnsi(std::u16string_view text, unsigned codePage = 0);

/// A code page of Windows. Characters that only resemble one of the code page become "?" as all
/// others that it does not hold: a path with another letter would name another file.
class Win32TextCodec : public TextCodec {
public:
    std::string ToAnsi(std::u16string_view text) const override;
    std::u16string FromAnsi(std::string_view bytes) const override;

    unsigned CodePage() const { return codePage_; }

protected:
    explicit Win32TextCodec(unsigned codePage) : codePage_(codePage) {}

private:
    unsigned codePage_;
};

/// The system's ANSI code page: what the "...A" functions of Windows take and return.
class SystemTextCodec : public Win32TextCodec {
public:
    SystemTextCodec();
};

/// The system's ANSI code page when each of its characters is one byte, else 1252: the form in
/// which configured values are scrambled byte by byte.
class SingleByteTextCodec : public Win32TextCodec {
public:
    SingleByteTextCodec();
};

}  // namespace tarvex
