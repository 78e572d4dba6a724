#include "branding/cuBrand.h"

#include <algorithm>
#include <utility>

#include "branding/BlockSearch.h"
#include "branding/BrandErrors.h"
#include "branding/BrandMark.h"
#include "errors/RaisedError.h"
#include "errors/RuntimeErrors.h"
#include "text/Text.h"

namespace tarvex {

namespace {

constexpr std::size_t kBytesPerCharacter = 2;

std::u16string ItemHeader(const cuBranding& item) {
    return MarkHeader(item.Index(), item.NumChars(), item.Name());
}

std::int32_t Position32(std::int64_t position) {
    if (position > INT32_MAX) {
        throw MakeError(RuntimeError::Overflow);
    }
    return static_cast<std::int32_t>(position);
}

}  // namespace

cuBrand::cuBrand(BinaryFiles* files, const BrandConstants* constants)
    : files_(files), constants_(constants) {}

void cuBrand::SetFileName(std::u16string_view name) {
    AtPlace(u"cuBrand: Filename (Let)", [&] {
        file_.reset();
        fileName_.clear();
        if (name.empty()) {
            return;
        }
        if (files_ == nullptr) {
            throw MakeError(RuntimeError::ObjectNotSet);
        }
        if (!files_->FileExists(name)) {
            throw MakeError(BrandError::FileMissing, name);
        }
        file_ = files_->Open(name);
        fileName_ = name;
    });
}

BrandState cuBrand::BrandInformation() const {
    return mode_ == BrandMode::Constants ? GetBrandInformation() : state_;
}

BrandState cuBrand::GetBrandInformation() const {
    try {
        if (mode_ == BrandMode::File) {
            return FileState();
        }
        return OwnMarkerIsBranded() ? BrandState::Branded : BrandState::NotYetBranded;
    } catch (...) {
        return BrandState::Unknown;
    }
}

bool cuBrand::OwnMarkerIsBranded() const {
    if (constants_ == nullptr) {
        throw MakeError(RuntimeError::ObjectNotSet);
    }
    return text::EqualsIgnoreCase(constants_->Marker(), constants_->BrandedMarker());
}

BrandState cuBrand::FileState() const {
    if (SeekData(MarkerText(false)) != 0) {
        return BrandState::NotYetBranded;
    }
    return SeekData(MarkerText(true)) != 0 ? BrandState::Branded : BrandState::NoIdentifier;
}

bool cuBrand::LoadFomConstants(const std::vector<std::u16string>& marks) {
    return AtPlace(u"cuBrand: LoadFomConstants", [&] {
        if (mode_ == BrandMode::File) {
            throw MakeError(BrandError::WrongMode);
        }
        brandings_.Clear();
        state_ = BrandState::Unknown;
        for (const std::u16string& entry : marks) {
            if (const std::optional<BrandMark> mark = brdParseConstant(entry)) {
                brandings_.Add(mark->name, mark->value, mark->number, mark->width);
            }
        }
        if (brandings_.Count() == 0) {
            return false;
        }
        brandings_.UnDirtyAll();
        state_ = GetBrandInformation();
        return state_ == BrandState::Branded;
    });
}

bool cuBrand::LoadFromFile() {
    return AtPlace(u"cuBrand: LoadFromFile", [&] {
        RequireFileMode();
        if (file_ == nullptr) {
            throw MakeError(BrandError::NoFileName);
        }
        brandings_.Clear();
        RequireIdentifier();
        LoadBlocks();
        brandings_.UnDirtyAll();
        return state_ == BrandState::Branded;
    });
}

void cuBrand::LoadBlocks() {
    BinaryFile& file = File();
    file.Seek(0);
    std::string buffer;
    std::int64_t blockOffset = 0;
    for (;;) {
        const std::string block = file.Read(kBlockSize);
        if (block.empty()) {
            return;
        }
        std::int64_t offset = blockOffset - static_cast<std::int64_t>(buffer.size());
        buffer += block;
        GetConstant(buffer, offset);
        blockOffset += static_cast<std::int64_t>(block.size());
    }
}

void cuBrand::GetConstant(std::string& buffer, std::int64_t& offset) {
    AtPlace(u"cuBrand: GetConstant", [&] {
        const std::string pattern = ToUtf16Bytes(MarkStart());
        const std::string_view all = buffer;
        std::size_t scanned = 0;
        std::int64_t scannedOffset = offset;
        for (;;) {
            const std::size_t found = all.find(pattern, scanned);
            if (found == std::string_view::npos) {
                scanned = all.size();
                break;
            }
            // A mark that is not parsed stays, with all that follows it, for the next block: the
            // whole of it is decoded again then, but never more than a mark can be long.
            const std::optional<BrandMark> mark = brdParseConstant(
                FromUtf16Bytes(all.substr(found, kBytesPerCharacter * kLongestMark)));
            if (!mark) {
                break;
            }
            const std::size_t header =
                kBytesPerCharacter * (kMarkHeaderWithoutName + mark->name.size());
            const std::size_t end =
                found + header + kBytesPerCharacter * static_cast<std::size_t>(mark->width);
            cuBranding& item = brandings_.Add(mark->name, mark->value, mark->number, mark->width);
            item.SetStartPosition(
                Position32(offset + static_cast<std::int64_t>(found + header) + 1));
            scannedOffset = offset + static_cast<std::int64_t>(end);
            scanned = std::min(end, all.size());
        }
        offset = scannedOffset;
        buffer.erase(0, scanned);
    });
}

bool cuBrand::LoadFromArray(const std::vector<BrandRow>& rows, bool verify, bool readValues) {
    return AtPlace(u"cuBrand: LoadFromArray", [&] {
        RequireFileMode();
        if (verify) {
            RequireIdentifier();
        }
        brandings_.Clear();
        for (const BrandRow& row : rows) {
            AddRow(row, verify, readValues);
        }
        brandings_.UnDirtyAll();
        return !verify || state_ == BrandState::Branded;
    });
}

void cuBrand::AddRow(const BrandRow& row, bool verify, bool readValues) {
    cuBranding& item = brandings_.Add(row.name, {}, row.number, row.width);
    item.SetStartPosition(row.startPosition);
    if (readValues) {
        item.SetValue(text::Trim(ReadBranding(item)));
    }
    if (verify && !HeaderStandsBefore(item)) {
        throw MakeError(BrandError::PositionsDiffer, item.Name());
    }
}

bool cuBrand::HeaderStandsBefore(const cuBranding& item) const {
    const std::u16string header = ItemHeader(item);
    if (SeekData(header) == 0) {
        return false;
    }
    const auto headerBytes = static_cast<std::int64_t>(kBytesPerCharacter * header.size());
    const std::u16string found =
        ReadData(item.StartPosition() - headerBytes, static_cast<std::int32_t>(header.size()));
    return text::EqualsIgnoreCase(found, header);
}

std::u16string cuBrand::ReadBranding(const cuBranding& item) const {
    return AtPlace(u"cuBrand: ReadBranding", [&] {
        if (item.StartPosition() == 0) {
            throw MakeError(BrandError::NoPosition, item.Name());
        }
        return ReadData(item.StartPosition(), item.NumChars());
    });
}

std::u16string cuBrand::ReadData(std::int64_t position, std::int32_t count) const {
    return AtPlace(u"cuBrand: ReadData", [&]() -> std::u16string {
        BinaryFile& file = File();
        if (position <= 0 || position >= file.Size() || count <= 0) {
            return {};
        }
        file.Seek(position - 1);
        return FromUtf16Bytes(file.Read(kBytesPerCharacter * static_cast<std::size_t>(count)));
    });
}

std::int64_t cuBrand::SeekData(std::u16string_view text) const {
    return AtPlace(u"cuBrand: SeekData", [&]() -> std::int64_t {
        BinaryFile& file = File();
        file.Seek(0);
        BlockSearch search(ToUtf16Bytes(text));
        std::int64_t blockNumber = 0;
        for (;;) {
            std::string block = file.Read(kBlockSize);
            if (block.empty()) {
                return 0;
            }
            ++blockNumber;
            const bool full = block.size() == kBlockSize;
            const auto previous = static_cast<std::int64_t>(search.PreviousLength());
            const auto joined = static_cast<std::int64_t>(search.FindInNext(std::move(block)));
            if (joined == 0) {
                continue;
            }
            // Kept: the position in a last, partial block is not that of the text. Launchers that
            // were written that way are in use, and tools know where to find what is in them.
            const std::int64_t position =
                full ? (blockNumber - 1) * static_cast<std::int64_t>(kBlockSize) + joined - previous
                     : previous + joined + 1;
            file.Seek(position - 1);
            return position;
        }
    });
}

void cuBrand::WriteData(std::u16string_view text, std::int64_t position, std::int32_t count) {
    AtPlace(u"cuBrand: WriteData", [&] {
        BinaryFile& file = File();
        if (position <= 0) {
            throw MakeError(RuntimeError::InvalidCall);
        }
        file.Seek(position - 1);
        file.Write(ToUtf16Bytes(FitToWidth(text, count)));
    });
}

bool cuBrand::SaveSub(const cuBranding& item) {
    return AtPlace(u"cuBrand: SaveSub", [&] {
        const std::u16string header = ItemHeader(item);
        if (SeekData(header) == 0) {
            return false;
        }
        File().Write(ToUtf16Bytes(header + FitToWidth(item.Value(), item.NumChars())));
        return true;
    });
}

bool cuBrand::Save(bool onlyChanged) {
    return AtPlace(u"cuBrand: Save", [&] {
        if (mode_ == BrandMode::Constants) {
            RaisedError error = MakeError(BrandError::WrongMode);
            error.description = u"Das Schreiben ist im aktuellen Modus nicht möglich.";
            throw RaisedError(std::move(error));
        }
        if (brandings_.Count() == 0) {
            throw MakeError(BrandError::NoItems);
        }
        if (!DetermineState()) {
            throw MakeError(BrandError::NoMarker);
        }
        if (denyMultiBranding_ && state_ == BrandState::Branded) {
            throw MakeError(BrandError::AlreadyBranded);
        }
        for (const cuBranding& item : std::as_const(brandings_)) {
            if ((!onlyChanged || item.Dirty()) && !SaveSub(item)) {
                throw MakeError(BrandError::ItemNotSaved, item.Name());
            }
        }
        if (state_ == BrandState::NotYetBranded && SeekData(MarkerText(false)) != 0) {
            File().Write(ToUtf16Bytes(MarkerText(true)));
        }
        return true;
    });
}

BinaryFile& cuBrand::File() const {
    if (file_ == nullptr) {
        throw MakeError(RuntimeError::BadFileNumber);
    }
    return *file_;
}

void cuBrand::RequireFileMode() const {
    if (mode_ == BrandMode::Constants) {
        throw MakeError(BrandError::WrongMode);
    }
}

bool cuBrand::DetermineState() {
    state_ = GetBrandInformation();
    return state_ == BrandState::Branded || state_ == BrandState::NotYetBranded;
}

void cuBrand::RequireIdentifier() {
    if (!DetermineState()) {
        throw MakeError(BrandError::NoIdentifier, fileName_);
    }
}

}  // namespace tarvex
