// What a version of a product asks of its setup, and the proof that a setup gives it.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "engine/Survey.h"
#include "model/ModProject.h"
#include "setup/Proof.h"
#include "tools/Clock.h"

namespace console {

/// What the setup of the version has to hold. Takes the sources out of `survey`.
[[nodiscard]] setup::ExpectedSetup ExpectedSetupOf(const model::ModProject& project,
                                                   model::VersionSlot version,
                                                   engine::Survey& survey,
                                                   const tools::Clock& clock);

/// Proves the setup on all processors. What kept the version from being surveyed whole, such as a
/// missing source, is among the findings. Raises tools::Error, and what `onProgress` raises.
[[nodiscard]] setup::ProofResult ProveVersion(
    const setup::Setup& setup, const model::ModProject& project, model::VersionSlot version,
    const tools::Clock& clock, const std::function<void(const tools::Progress&)>& onProgress);

}  // namespace console
