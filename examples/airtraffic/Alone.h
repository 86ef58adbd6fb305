#ifndef AIRTRAFFIC_ALONE_H
#define AIRTRAFFIC_ALONE_H

#include <string>

namespace airtraffic {

// Runs the one federate of the scenario that has that name, for the others to be in processes of their own:
// they meet at a hub. False if there is none.
bool runAlone(std::wstring const& name, std::wstring const& fomModule);

} // namespace airtraffic

#endif
