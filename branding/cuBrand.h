#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "branding/BrandConstants.h"
#include "branding/cuBrandings.h"
#include "platform/FileStore.h"

namespace tarvex {

enum class BrandMode : std::int32_t { File = 0, Constants = 1 };

/// Whether a program has been branded.
enum class BrandState : std::int32_t {
    Unknown = 0,       ///< not determined
    NoIdentifier = 2,  ///< holds neither form of the marker
    Branded = 4,
    NotYetBranded = 8
};

/// Where a mark lies in a file, as noted after an earlier load.
struct BrandRow {
    std::u16string name;
    std::int32_t number = 0;
    std::int32_t width = 0;          ///< characters
    std::int32_t startPosition = 0;  ///< 1-based byte position of the value area
};

/// Reads the brand marks compiled into the running program (constants mode), or finds, reads and
/// rewrites those of an executable file (file mode). Positions are 1-based byte positions in the
/// file. A file is read in blocks of 32768 bytes, and that is part of the behaviour: a mark whose
/// prefix lies across two blocks is not found, a value across two blocks is loaded up to the
/// boundary, and SeekData reports a wrong position in a last, partial block. Use it on files whose
/// length is a multiple of the block and whose marks keep off the boundaries.
///
/// Every operation adds its place to the source of an error that passes through it. Its own errors
/// are 0x80040000 plus the number given at the operation. What was changed before a failure stays
/// changed.
class cuBrand {
public:
    static constexpr std::size_t kBlockSize = 32768;

    /// Either may be null: file mode needs `files`, constants mode needs `constants`; they outlive
    /// this object. Starts in file mode with no file.
    cuBrand(BinaryFiles* files, const BrandConstants* constants);

    /// To be set before loading.
    BrandMode Mode() const { return mode_; }
    void SetMode(BrandMode mode) { mode_ = mode; }

    /// Closes the open file; opens the new one for reading and writing unless the name is empty.
    /// Error 8 when there is no such file; runtime errors when it cannot be opened. After a failure
    /// no file is open and the name is empty.
    const std::u16string& FileName() const { return fileName_; }
    void SetFileName(std::u16string_view name);

    /// 0 when no file is open.
    std::int32_t FileNumber() const { return file_ != nullptr ? 1 : 0; }

    /// When set, a file that is already branded is not saved again.
    bool DenyMultiBranding() const { return denyMultiBranding_; }
    void SetDenyMultiBranding(bool deny) { denyMultiBranding_ = deny; }

    cuBrandings& Brandings() { return brandings_; }
    const cuBrandings& Brandings() const { return brandings_; }

    /// File mode: the state that the last load or save determined. Constants mode: that of the
    /// program's own marker.
    BrandState BrandInformation() const;

    /// Determines the state afresh, without keeping it; Unknown when that fails for any reason.
    BrandState GetBrandInformation() const;

    /// Whether the running program's own marker says that it is branded.
    bool OwnMarkerIsBranded() const;

    /// Kept: the name, which users know from error reports.
    /// Constants mode only (error 6). Replaces the items by the marks among the given texts; other
    /// texts are skipped. True when there are any and the program is branded.
    bool LoadFomConstants(const std::vector<std::u16string>& marks);

    /// File mode only (error 6) with a file open (error 7) that holds a marker (error 9). Replaces
    /// the items by the marks of the file. True when the file is branded; an unbranded file is
    /// loaded all the same.
    bool LoadFromFile();

    /// File mode only (error 6). Replaces the items by the rows, without searching the file. With
    /// `verify` the file must hold a marker (error 9) and each mark's header must stand before its
    /// value area (error 1); with `readValues` the values are read. True when `verify` is off or
    /// the file is branded.
    bool LoadFromArray(const std::vector<BrandRow>& rows, bool verify, bool readValues);

    /// The whole value area of an item in the file, padding included. Error 10 when the item has no
    /// position.
    std::u16string ReadBranding(const cuBranding& item) const;

    /// `count` characters at a position, fewer at the end of the file; none when the position is
    /// not inside the file.
    std::u16string ReadData(std::int64_t position, std::int32_t count) const;

    /// Finds the first occurrence of a text, case of the letters A to Z ignored, and moves the file
    /// to it; 0 when there is none.
    std::int64_t SeekData(std::u16string_view text) const;

    /// Writes a text, cut or padded with blanks to `count` characters.
    void WriteData(std::u16string_view text, std::int64_t position, std::int32_t count);

    /// Writes the items' values as they stand, with `onlyChanged` only those of dirty items, and
    /// turns the marker of an unbranded file into the branded one. File mode only (error 6); error
    /// 4 without items, 5 without a marker, 3 when branding again is denied, 2 when a mark is not
    /// in the file. Returns true.
    bool Save(bool onlyChanged);

    /// Rewrites one mark, wherever it lies; false when the file does not hold its header.
    bool SaveSub(const cuBranding& item);

    /// Adds the marks in a buffer to the items. `offset` is the 0-based file offset of its first
    /// byte. On return the buffer holds what has to be put in front of the bytes that follow it in
    /// the file, because a mark in it is not complete, and `offset` is that of its first byte.
    void GetConstant(std::string& buffer, std::int64_t& offset);

private:
    BinaryFile& File() const;
    BrandState FileState() const;
    void RequireFileMode() const;
    bool DetermineState();
    void RequireIdentifier();
    void LoadBlocks();
    void AddRow(const BrandRow& row, bool verify, bool readValues);
    bool HeaderStandsBefore(const cuBranding& item) const;

    BinaryFiles* files_;
    const BrandConstants* constants_;
    BrandMode mode_ = BrandMode::File;
    std::u16string fileName_;
    std::unique_ptr<BinaryFile> file_;
    bool denyMultiBranding_ = false;
    cuBrandings brandings_;
    BrandState state_ = BrandState::Unknown;
};

}  // namespace tarvex
