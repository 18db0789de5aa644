#pragma once

namespace norvik {

class InvDBConnection;
class TReplicationBaseClass;
class TnvNextNumberCache;

// Stores a change block as a row of sysREChangeBlocks, with a helper that does not itself
// replicate.
class TRepChangeBlockWriter {
public:
    // raises EnvReplicationException for anything but a TRepCustomChangeBlock
    static bool Save(InvDBConnection& AConn, const TReplicationBaseClass& ARep, TnvNextNumberCache& ACache);
};

} // namespace norvik
