#pragma once

#include <array>
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
inline constexpr std::int32_t kFieldAccRegList01 = 3;
inline constexpr std::int32_t kFieldAccRegList02 = 4;
inline constexpr std::int32_t kFieldAccRegList03 = 5;
inline constexpr std::int32_t kFieldAccRegList04 = 6;
inline constexpr std::int32_t kFieldAccRegList05 = 7;
inline constexpr std::int32_t kFieldAccRegList06 = 8;
inline constexpr std::int32_t kFieldAccRegList07 = 9;
inline constexpr std::int32_t kFieldAccRegList08 = 10;
inline constexpr std::int32_t kFieldAccRegList09 = 11;
inline constexpr std::int32_t kFieldAccRegList10 = 12;
inline constexpr std::int32_t kFieldDBPath = 13;
inline constexpr std::int32_t kFieldDBFilename = 14;
inline constexpr std::int32_t kFieldDBRegList01 = 15;
inline constexpr std::int32_t kFieldDBRegList02 = 16;
inline constexpr std::int32_t kFieldDBRegList03 = 17;
inline constexpr std::int32_t kFieldDBRegList04 = 18;
inline constexpr std::int32_t kFieldDBRegList05 = 19;
inline constexpr std::int32_t kFieldDBRegList06 = 20;
inline constexpr std::int32_t kFieldDBRegList07 = 21;
inline constexpr std::int32_t kFieldDBRegList08 = 22;
inline constexpr std::int32_t kFieldDBRegList09 = 23;
inline constexpr std::int32_t kFieldDBRegList10 = 24;
inline constexpr std::int32_t kFieldPicPath = 25;
inline constexpr std::int32_t kFieldPicFilename = 26;
inline constexpr std::int32_t kFieldPicDelay = 27;
inline constexpr std::int32_t kFieldPicRegList01 = 28;
inline constexpr std::int32_t kFieldPicRegList02 = 29;
inline constexpr std::int32_t kFieldPicRegList03 = 30;
inline constexpr std::int32_t kFieldPicRegList04 = 31;
inline constexpr std::int32_t kFieldPicRegList05 = 32;
inline constexpr std::int32_t kFieldPicRegList06 = 33;
inline constexpr std::int32_t kFieldPicRegList07 = 34;
inline constexpr std::int32_t kFieldPicRegList08 = 35;
inline constexpr std::int32_t kFieldPicRegList09 = 36;
inline constexpr std::int32_t kFieldPicRegList10 = 37;
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
inline constexpr std::int32_t kFieldSysDBRegList01 = 54;
inline constexpr std::int32_t kFieldSysDBRegList02 = 55;
inline constexpr std::int32_t kFieldSysDBRegList03 = 56;
inline constexpr std::int32_t kFieldSysDBRegList04 = 57;
inline constexpr std::int32_t kFieldSysDBRegList05 = 58;
inline constexpr std::int32_t kFieldSysDBRegList06 = 59;
inline constexpr std::int32_t kFieldSysDBRegList07 = 60;
inline constexpr std::int32_t kFieldSysDBRegList08 = 61;
inline constexpr std::int32_t kFieldSysDBRegList09 = 62;
inline constexpr std::int32_t kFieldSysDBRegList10 = 63;
inline constexpr std::int32_t kFieldFileID = 64;
inline constexpr std::int32_t kFieldEditPwd = 65;
inline constexpr std::int32_t kFieldHCID = 66;
inline constexpr std::int32_t kFieldDecompile = 67;
inline constexpr std::int32_t kFieldErrBoxText = 68;
inline constexpr std::int32_t kFieldErrDebugText = 69;

/// All fields in the order in which their marks stand in the program and in the diagnostic report.
/// The order is free; files of other builds may use another one.
inline constexpr std::array<BrandField, 67> kBrandFields{{
    {kFieldAppName, 50, u"AppName", FieldKind::Text},
    {kFieldFileID, 10, u"FileID", FieldKind::Text},
    {kFieldEditPwd, 50, u"EditPwd", FieldKind::Credential},
    {kFieldHCID, 5, u"HCID", FieldKind::Number},
    {kFieldLog, 1, u"Log", FieldKind::Flag},
    {kFieldErrBoxText, 500, u"ErrBoxText", FieldKind::Text},
    {kFieldErrDebugText, 500, u"ErrDebugText", FieldKind::Text},
    {kFieldAccPath, 255, u"AccPath", FieldKind::Path},
    {kFieldAccRegList01, 500, u"AccRegList01", FieldKind::KeyList},
    {kFieldAccRegList02, 500, u"AccRegList02", FieldKind::KeyList},
    {kFieldAccRegList03, 500, u"AccRegList03", FieldKind::KeyList},
    {kFieldAccRegList04, 500, u"AccRegList04", FieldKind::KeyList},
    {kFieldAccRegList05, 500, u"AccRegList05", FieldKind::KeyList},
    {kFieldAccRegList06, 500, u"AccRegList06", FieldKind::KeyList},
    {kFieldAccRegList07, 500, u"AccRegList07", FieldKind::KeyList},
    {kFieldAccRegList08, 500, u"AccRegList08", FieldKind::KeyList},
    {kFieldAccRegList09, 500, u"AccRegList09", FieldKind::KeyList},
    {kFieldAccRegList10, 500, u"AccRegList10", FieldKind::KeyList},
    {kFieldDBPath, 255, u"DBPath", FieldKind::Path},
    {kFieldDBFilename, 100, u"DBFilename", FieldKind::Path},
    {kFieldDBRegList01, 500, u"DBRegList01", FieldKind::KeyList},
    {kFieldDBRegList02, 500, u"DBRegList02", FieldKind::KeyList},
    {kFieldDBRegList03, 500, u"DBRegList03", FieldKind::KeyList},
    {kFieldDBRegList04, 500, u"DBRegList04", FieldKind::KeyList},
    {kFieldDBRegList05, 500, u"DBRegList05", FieldKind::KeyList},
    {kFieldDBRegList06, 500, u"DBRegList06", FieldKind::KeyList},
    {kFieldDBRegList07, 500, u"DBRegList07", FieldKind::KeyList},
    {kFieldDBRegList08, 500, u"DBRegList08", FieldKind::KeyList},
    {kFieldDBRegList09, 500, u"DBRegList09", FieldKind::KeyList},
    {kFieldDBRegList10, 500, u"DBRegList10", FieldKind::KeyList},
    {kFieldSysDBPath, 255, u"SysDBPath", FieldKind::Path},
    {kFieldSysDBFilename, 100, u"SysDBFilename", FieldKind::Path},
    {kFieldSysDBRegList01, 500, u"SysDBRegList01", FieldKind::KeyList},
    {kFieldSysDBRegList02, 500, u"SysDBRegList02", FieldKind::KeyList},
    {kFieldSysDBRegList03, 500, u"SysDBRegList03", FieldKind::KeyList},
    {kFieldSysDBRegList04, 500, u"SysDBRegList04", FieldKind::KeyList},
    {kFieldSysDBRegList05, 500, u"SysDBRegList05", FieldKind::KeyList},
    {kFieldSysDBRegList06, 500, u"SysDBRegList06", FieldKind::KeyList},
    {kFieldSysDBRegList07, 500, u"SysDBRegList07", FieldKind::KeyList},
    {kFieldSysDBRegList08, 500, u"SysDBRegList08", FieldKind::KeyList},
    {kFieldSysDBRegList09, 500, u"SysDBRegList09", FieldKind::KeyList},
    {kFieldSysDBRegList10, 500, u"SysDBRegList10", FieldKind::KeyList},
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
    {kFieldPicRegList01, 500, u"PicRegList01", FieldKind::KeyList},
    {kFieldPicRegList02, 500, u"PicRegList02", FieldKind::KeyList},
    {kFieldPicRegList03, 500, u"PicRegList03", FieldKind::KeyList},
    {kFieldPicRegList04, 500, u"PicRegList04", FieldKind::KeyList},
    {kFieldPicRegList05, 500, u"PicRegList05", FieldKind::KeyList},
    {kFieldPicRegList06, 500, u"PicRegList06", FieldKind::KeyList},
    {kFieldPicRegList07, 500, u"PicRegList07", FieldKind::KeyList},
    {kFieldPicRegList08, 500, u"PicRegList08", FieldKind::KeyList},
    {kFieldPicRegList09, 500, u"PicRegList09", FieldKind::KeyList},
    {kFieldPicRegList10, 500, u"PicRegList10", FieldKind::KeyList},
}};

/// The field of that number; null when there is none.
const BrandField* FindBrandField(std::int32_t number);

/// The field of that name, case ignored; null when there is none.
const BrandField* FindBrandFieldByName(std::u16string_view name);

}  // namespace tarvex
