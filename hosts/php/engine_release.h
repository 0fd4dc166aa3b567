#pragma once

#include <string>

namespace dralo::php {

/// The release of PHP that this extension was compiled for, such as "8.2.36".
std::string CompiledFor();

/// Says that this extension cannot run in the engine that has loaded it, and what to do; empty when it can.
/// An engine of another minor release lays out its data differently; patch releases are alike. The engine
/// itself refuses an extension of another API or build kind before it calls anything of it.
const std::string& WhyNotHere();

}  // namespace dralo::php
