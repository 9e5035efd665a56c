// What every program of this house sets up before anything else.
#pragma once

namespace tools {

/// Opens the standard streams that the caller closed on the system's empty device: a file opened
/// later would take their numbers, and messages would go into it. Exceeding the caller's limit of
/// file sizes becomes an error of the write, where the system would end the program.
void PrepareProcess() noexcept;

}  // namespace tools
