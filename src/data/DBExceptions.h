#pragma once

#include "Exception.h"

namespace norvik {

// The failures of the data layer. Errors of the database engine itself are not wrapped:
// they pass through as the engine raised them.

// Base of the data layer's own failures.
class EnvDBException : public Exception {
public:
    using Exception::Exception;
};

// The connection cannot be made, or is used while not connected.
class EDBConnectionException : public EnvDBException {
public:
    using EnvDBException::EnvDBException;
};

// Table metadata, statement helpers and ID generation.
class EDBUtilsException : public EnvDBException {
public:
    using EnvDBException::EnvDBException;
};

// A statement that the data layer refuses before it reaches the engine.
class EnvDatabaseException : public EnvDBException {
public:
    using EnvDBException::EnvDBException;
};

// Misuse of the nested transactions: a commit or rollback without a start.
class ETransactionException : public EnvDBException {
public:
    using EnvDBException::EnvDBException;
};

// Change blocks and replication.
class EnvReplicationException : public EnvDBException {
public:
    using EnvDBException::EnvDBException;
};

} // namespace norvik
