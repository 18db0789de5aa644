#pragma once

#include <functional>

namespace norvik {
class InvDBConnection;
}

// How a page reaches the database: asked at each use, as pages keep no connection; nullptr
// when there is no database.
using TConnectionSource = std::function<norvik::InvDBConnection*()>;
