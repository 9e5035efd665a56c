// What each program sets up before anything else.
#pragma once

namespace tools {

/// Standard streams that the caller has closed lead to the system's empty device from now on: a
/// file opened later would take their numbers, and messages would go into it. A write beyond the
/// user's limit of file sizes fails from now on; the system would end the program.
void PrepareProcess() noexcept;

}  // namespace tools
