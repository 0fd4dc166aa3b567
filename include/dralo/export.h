#pragma once

/// Marks what a shared library of this project shows to programs; everything else in it is hidden.
#define DRALO_EXPORT __attribute__((visibility("default")))
