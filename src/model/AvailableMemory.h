#pragma once

#include <QtGlobal>

/// The bytes of memory that can be had without others going short, swap space included. All that
/// the machine has, or more than any has, where the system doesn't tell.
qint64 availableMemory();
