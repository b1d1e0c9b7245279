#pragma once

#include "ado/connection.h"

#include <string>
#include <vector>

namespace zel::ado {

enum class CommandType { Text = 1, StoredProcedure = 4 };
enum class DataType { Integer = 3, VarChar = 200 };
enum class ParameterDirection { Input = 1, Output = 2 };

/// A parameter of a stored procedure, by position.
struct Parameter {
    std::string name;
    DataType type = DataType::VarChar;
    ParameterDirection direction = ParameterDirection::Input;
    /// Characters of a varchar; a longer input is cut as the server cuts it.
    std::size_t size = 0;
    Value value;
};

/// A call of a stored procedure. The database answers to one of them, `usp_getNextNumber`; any other name is the
/// provider's "could not find stored procedure" error.
class Command {
public:
    Connection* ActiveConnection = nullptr;
    std::string CommandText;
    CommandType Type = CommandType::Text;
    std::vector<Parameter> Parameters;

    /// Output parameters hold their values afterwards.
    void Execute();
};

} // namespace zel::ado
