#pragma once

namespace tarvex {

/// Holds back the end of the program while there are temporary files: one thread makes and removes
/// them, another one, in which the system tells of an interruption, waits for the last of them. The
/// file that the first one writes cannot be deleted under it, but that work ends soon.
class TemporaryGate {
public:
    /// From now on until Leave there is a temporary file. Once the gate is closed it never returns:
    /// the thread waits for the end of the program.
    void Enter();
    void Leave();

    /// Lets no more temporary files come into being and waits until there is none, 4 seconds at
    /// most: the system does not wait much longer for a program whose console was closed. True when
    /// there is none.
    bool Close();

private:
    volatile long inside_ = 0;
    volatile long closed_ = 0;
};

/// The gate of this program.
TemporaryGate& ProgramGate();

/// Prepares a console program: an interruption (Ctrl+C, Ctrl+Break, the console's window closed,
/// the user logged off) ends it as before, but only after closing its gate, and gives the console
/// its settings back. To be called once, at the start.
void PrepareWin32Program();

/// An interruption sets the console of the handle `input` to `mode`; with null nothing, as at the
/// start.
void RestoreConsoleOnInterrupt(void* input, unsigned long mode);

}  // namespace tarvex
