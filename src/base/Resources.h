#pragma once

/// Makes the compiled-in resources seen, such as ":/patterns/images/brick.png". The linker drops
/// what nobody calls from a static library, and with it the resources: each program and test that
/// needs them calls this once at its start, and links vesperine_resources, which defines it.
void initialiseResources();
