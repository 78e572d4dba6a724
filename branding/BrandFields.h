#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tarvex {

/// What a field's plain value means.
enum class FieldKind {
    Text,
    Path,        ///< a folder, a path or a file name
    KeyList,     ///< entries of a registry key list
    Number,      ///< decimal
    Flag,        ///< "1" is true, everything else false
    Credential,  ///< user name or password; stored as a scrambled list of numbers
};

/// One setting that the launcher carries in its own file.
struct BrandField {
    std::int32_t number;
    std::int32_t width;  ///< characters of the stored value
    std::u16string_view name;
    FieldKind kind;
};

inline constexpr std::int32_t kFieldAppName = 1;
inline constexpr std::int32_t kFieldAccPath = 2;
inline constexpr std::int32_t kFieldDBPath = 13;
inline constexpr std::int32_t kFieldDBFilename = 14;
inline constexpr std::int32_t kFieldPicPath = 25;
inline constexpr std::int32_t kFieldPicFilename = 26;
inline constexpr std::int32_t kFieldPicDelay = 27;
inline constexpr std::int32_t kFieldProfile = 38;
inline constexpr std::int32_t kFieldUser = 39;
inline constexpr std::int32_t kFieldPwd = 40;
inline constexpr std::int32_t kFieldRuntime = 41;
inline constexpr std::int32_t kFieldExclusive = 42;
inline constexpr std::int32_t kFieldLog = 43;
inline constexpr std::int32_t kFieldReadOnly = 44;
inline constexpr std::int32_t kFieldCompact = 45;
inline constexpr std::int32_t kFieldRepair = 46;
inline constexpr std::int32_t kFieldNoStartup = 47;
inline constexpr std::int32_t kFieldCmd = 48;
inline constexpr std::int32_t kFieldMacro = 49;
inline constexpr std::int32_t kFieldSysDBFilename = 52;
inline constexpr std::int32_t kFieldSysDBPath = 53;
inline constexpr std::int32_t kFieldFileID = 64;
inline constexpr std::int32_t kFieldEditPwd = 65;
inline constexpr std::int32_t kFieldHCID = 66;
inline constexpr std::int32_t kFieldDecompile = 67;
inline constexpr std::int32_t kFieldErrBoxText = 68;
inline constexpr std::int32_t kFieldErrDebugText = 69;

/// The fields that hold the entries of one registry key list, in the order in which they are tried.
struct KeyListFields {
    static constexpr std::int32_t kCount = 10;

    std::int32_t first;

    /// Number of the field that holds the entry of that position, which is 1 to kCount.
    constexpr std::int32_t Field(std::int32_t position) const { return first + position - 1; }

    /// The numbers of all its fields.
    constexpr std::array<std::int32_t, kCount> Numbers() const {
        std::array<std::int32_t, kCount> numbers{};
        for (std::int32_t i = 0; i < kCount; ++i) {
            numbers[static_cast<std::size_t>(i)] = first + i;
        }
        return numbers;
    }
};

inline constexpr KeyListFields kAccRegList{3};
inline constexpr KeyListFields kDBRegList{15};
inline constexpr KeyListFields kPicRegList{28};
inline constexpr KeyListFields kSysDBRegList{54};

/// All fields in the order in which their marks stand in the program and in the diagnostic report.
/// Kept: this order, which is not that of the numbers, because vendors compare reports line by line
/// with older ones. Files of other builds may have another one.
inline constexpr auto kBrandFields = std::to_array<BrandField>({
    {kFieldAppName, 50, u"AppName", FieldKind::Text},
    {kFieldFileID, 10, u"FileID", FieldKind::Text},
    {kFieldEditPwd, 50, u"EditPwd", FieldKind::Credential},
    {kFieldHCID, 5, u"HCID", FieldKind::Number},
    {kFieldLog, 1, u"Log", FieldKind::Flag},
    {kFieldErrBoxText, 500, u"ErrBoxText", FieldKind::Text},
    {kFieldErrDebugText, 500, u"ErrDebugText", FieldKind::Text},
    {kFieldAccPath, 255, u"AccPath", FieldKind::Path},
    {kAccRegList.Field(1), 500, u"AccRegList01", FieldKind::KeyList},
    {kAccRegList.Field(2), 500, u"AccRegList02", FieldKind::KeyList},
    {kAccRegList.Field(3), 500, u"AccRegList03", FieldKind::KeyList},
    {kAccRegList.Field(4), 500, u"AccRegList04", FieldKind::KeyList},
    {kAccRegList.Field(5), 500, u"AccRegList05", FieldKind::KeyList},
    {kAccRegList.Field(6), 500, u"AccRegList06", FieldKind::KeyList},
    {kAccRegList.Field(7), 500, u"AccRegList07", FieldKind::KeyList},
    {kAccRegList.Field(8), 500, u"AccRegList08", FieldKind::KeyList},
    {kAccRegList.Field(9), 500, u"AccRegList09", FieldKind::KeyList},
    {kAccRegList.Field(10), 500, u"AccRegList10", FieldKind::KeyList},
    {kFieldDBPath, 255, u"DBPath", FieldKind::Path},
    {kFieldDBFilename, 100, u"DBFilename", FieldKind::Path},
    {kDBRegList.Field(1), 500, u"DBRegList01", FieldKind::KeyList},
    {kDBRegList.Field(2), 500, u"DBRegList02", FieldKind::KeyList},
    {kDBRegList.Field(3), 500, u"DBRegList03", FieldKind::KeyList},
    {kDBRegList.Field(4), 500, u"DBRegList04", FieldKind::KeyList},
    {kDBRegList.Field(5), 500, u"DBRegList05", FieldKind::KeyList},
    {kDBRegList.Field(6), 500, u"DBRegList06", FieldKind::KeyList},
    {kDBRegList.Field(7), 500, u"DBRegList07", FieldKind::KeyList},
    {kDBRegList.Field(8), 500, u"DBRegList08", FieldKind::KeyList},
    {kDBRegList.Field(9), 500, u"DBRegList09", FieldKind::KeyList},
    {kDBRegList.Field(10), 500, u"DBRegList10", FieldKind::KeyList},
    {kFieldSysDBPath, 255, u"SysDBPath", FieldKind::Path},
    {kFieldSysDBFilename, 100, u"SysDBFilename", FieldKind::Path},
    {kSysDBRegList.Field(1), 500, u"SysDBRegList01", FieldKind::KeyList},
    {kSysDBRegList.Field(2), 500, u"SysDBRegList02", FieldKind::KeyList},
    {kSysDBRegList.Field(3), 500, u"SysDBRegList03", FieldKind::KeyList},
    {kSysDBRegList.Field(4), 500, u"SysDBRegList04", FieldKind::KeyList},
    {kSysDBRegList.Field(5), 500, u"SysDBRegList05", FieldKind::KeyList},
    {kSysDBRegList.Field(6), 500, u"SysDBRegList06", FieldKind::KeyList},
    {kSysDBRegList.Field(7), 500, u"SysDBRegList07", FieldKind::KeyList},
    {kSysDBRegList.Field(8), 500, u"SysDBRegList08", FieldKind::KeyList},
    {kSysDBRegList.Field(9), 500, u"SysDBRegList09", FieldKind::KeyList},
    {kSysDBRegList.Field(10), 500, u"SysDBRegList10", FieldKind::KeyList},
    {kFieldUser, 100, u"User", FieldKind::Credential},
    {kFieldPwd, 100, u"Pwd", FieldKind::Credential},
    {kFieldProfile, 100, u"Profile", FieldKind::Text},
    {kFieldRuntime, 1, u"Runtime", FieldKind::Flag},
    {kFieldExclusive, 1, u"Exclusive", FieldKind::Flag},
    {kFieldReadOnly, 1, u"ReadOnly", FieldKind::Flag},
    {kFieldCompact, 1, u"Compact", FieldKind::Flag},
    {kFieldRepair, 1, u"Repair", FieldKind::Flag},
    {kFieldNoStartup, 1, u"NoStartup", FieldKind::Flag},
    {kFieldDecompile, 1, u"Decompile", FieldKind::Flag},
    {kFieldCmd, 100, u"Cmd", FieldKind::Text},
    {kFieldMacro, 100, u"Macro", FieldKind::Text},
    {kFieldPicDelay, 4, u"PicDelay", FieldKind::Number},
    {kFieldPicPath, 255, u"PicPath", FieldKind::Path},
    {kFieldPicFilename, 100, u"PicFilename", FieldKind::Path},
    {kPicRegList.Field(1), 500, u"PicRegList01", FieldKind::KeyList},
    {kPicRegList.Field(2), 500, u"PicRegList02", FieldKind::KeyList},
    {kPicRegList.Field(3), 500, u"PicRegList03", FieldKind::KeyList},
    {kPicRegList.Field(4), 500, u"PicRegList04", FieldKind::KeyList},
    {kPicRegList.Field(5), 500, u"PicRegList05", FieldKind::KeyList},
    {kPicRegList.Field(6), 500, u"PicRegList06", FieldKind::KeyList},
    {kPicRegList.Field(7), 500, u"PicRegList07", FieldKind::KeyList},
    {kPicRegList.Field(8), 500, u"PicRegList08", FieldKind::KeyList},
    {kPicRegList.Field(9), 500, u"PicRegList09", FieldKind::KeyList},
    {kPicRegList.Field(10), 500, u"PicRegList10", FieldKind::KeyList},
});

/// The field of that number; null when there is none.
const BrandField* FindBrandField(std::int32_t number);

/// The field of that name, case ignored; null when there is none.
const BrandField* FindBrandFieldByName(std::u16string_view name);

}  // namespace tarvex
