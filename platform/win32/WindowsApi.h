#pragma once

/// The only place that includes the headers of Windows. Its macros turn names such as
/// GetCommandLine into GetCommandLineW wherever they occur, so that a class would have other
/// members in a file that knows Windows than in one that does not: the macros that collide with
/// names of ours are removed. Functions of Windows are called by their full ...W or ...A name.

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif

#include <windows.h>

#include <commctrl.h>
#include <commdlg.h>
#include <ocidl.h>
#include <olectl.h>
#include <shellapi.h>
#include <shlobj.h>

#undef CopyFile
#undef CreateFile
#undef CreateProcess
#undef CreateWindow
#undef DeleteFile
#undef DrawText
#undef FindText
#undef GetClassName
#undef GetCommandLine
#undef GetCurrentTime
#undef GetFileTitle
#undef GetFileVersionInfo
#undef GetFullPathName
#undef GetMessage
#undef GetObject
#undef GetOpenFileName
#undef GetSaveFileName
#undef GetUserName
#undef HtmlHelp
#undef LoadLibrary
#undef LoadString
#undef MessageBox
#undef MoveFile
#undef RegOpenKey
#undef ReplaceFile
#undef ReplaceText
#undef SendMessage
#undef SHBrowseForFolder
#undef VerLanguageName
#undef VerQueryValue
#undef WinHelp
#undef Yield

#undef DELETE
#undef ERROR
#undef IN
#undef NO_ERROR
#undef OUT
#undef far
#undef hyper
#undef interface
#undef near
#undef small
