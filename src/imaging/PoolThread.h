#pragma once

/// Done on a thread of the pool before each of its tasks; null for nothing. Set before the first
/// task. The threads are the toolkit's, which tells nobody when it starts one.
void setPoolThreadPrologue(void (*prologue)());

/// Called by the tasks.
void enterPoolThread();

/// How many tasks at a time work may have that nobody waits for: half of the pool's threads, since
/// the other half is the tools'.
int backgroundThreads();
