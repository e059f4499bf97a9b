#pragma once

/// Keeps the image library from threads of its own, for the whole program: tasks on the global
/// thread pool are parallel enough, and threads below them only get into each other's way.
void forbidLibraryThreads();
