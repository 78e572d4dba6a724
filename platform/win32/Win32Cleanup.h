#pragma once

namespace tarvex {

/// Prepares a console program: an interruption (Ctrl+C, Ctrl+Break, the console's window closed,
/// the user logged off) ends it as before, but only when its temporary files are gone, and gives
/// the console its settings back. To be called once, at the start.
void PrepareWin32Program();

/// While one of these exists there is a temporary file that must not be left behind. After an
/// interruption none comes into being any more: the thread that wants one waits for the end.
void BeginTemporary();
void EndTemporary();

/// An interruption sets the console of the handle `input` to `mode`; with null nothing, as at the
/// start.
void RestoreConsoleOnInterrupt(void* input, unsigned long mode);

/// What happens on an interruption, but for the end of the program: waits until there is no
/// temporary file, a few seconds at most (the system does not wait longer for the program), and
/// restores the console.
void CleanUpAfterInterrupt();

}  // namespace tarvex
