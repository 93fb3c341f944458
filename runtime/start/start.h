// SPDX-License-Identifier: MIT
// What the start-up of a DLL and that of a program share.
#ifndef QUARNFC_RUNTIME_START_H_
#define QUARNFC_RUNTIME_START_H_

namespace quarnfc::runtime {

// Fills the stack cookie with something an attacker cannot know. Before anything that has one.
void InitialiseSecurityCookie();

// Runs the C and the C++ initialisers; false when a C initialiser failed.
bool RunInitialisers();

// Functions of atexit are kept in the module from here on (a DLL) and not in the process.
bool KeepExitFunctionsInModule();

// Runs them, last one first.
void RunExitFunctions();

// Runs the initialisers of this thread's thread-local objects, once; and their destructors.
void InitialiseThreadLocals();
void DestroyThreadLocals();

// Releases the names of types that were asked for.
void ReleaseTypeNames();

}  // namespace quarnfc::runtime

#endif  // QUARNFC_RUNTIME_START_H_
