#pragma once

/// Done on a thread of the pool before each of its tasks; null for nothing. Set before the first
/// task. The threads are the toolkit's, which tells nobody when it starts one.
void setPoolThreadPrologue(void (*prologue)());

/// Called by the tasks.
void enterPoolThread();
