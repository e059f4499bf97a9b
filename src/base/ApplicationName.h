#pragma once

/// Names the program and its version to the toolkit, so that a default-made QSettings is the store
/// that the editor and the command line share. Each program calls this once, before it reads
/// settings.
void nameApplication();
