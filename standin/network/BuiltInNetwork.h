#pragma once

#include "standin/network/NetworkPlan.h"

/// The network of a workbench that was given none.
namespace BuiltInNetwork {

/// Two adapters, and a camera for each case that a user may meet: free, with two heads, slow to
/// answer, of a foreign subnet, without an address, held elsewhere, and two pairs that share an
/// address, with each other and with an adapter.
NetworkPlan plan();

}
