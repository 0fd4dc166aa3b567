#pragma once

#include <string>
#include <vector>

namespace dralo::driver {

/// The images of a bar: those of buttons that work, and with a "d" of those that do not.
using Images = std::vector<std::string>;

inline const Images kNowhere = {"firstpgd.gif", "prevpgd.gif", "nextpgd.gif", "lastpgd.gif"};
inline const Images kBack = {"firstpg.gif", "prevpg.gif", "nextpgd.gif", "lastpgd.gif"};
inline const Images kForward = {"firstpgd.gif", "prevpgd.gif", "nextpg.gif", "lastpg.gif"};
inline const Images kEverywhere = {"firstpg.gif", "prevpg.gif", "nextpg.gif", "lastpg.gif"};
inline const Images kAnywhereButToTheLast = {"firstpg.gif", "prevpg.gif", "nextpg.gif", "lastpgd.gif"};
inline const Images kNextOnly = {"firstpgd.gif", "prevpgd.gif", "nextpg.gif", "lastpgd.gif"};

}  // namespace dralo::driver
