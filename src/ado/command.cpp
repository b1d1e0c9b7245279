#include "ado/command.h"

#include "ado/convert.h"
#include "ado/error.h"

namespace zel::ado {

namespace {

/// The text of an input, cut to its size as the server cuts it.
std::string inputText(const Parameter& parameter) {
    std::string text = toText(parameter.value);
    if (parameter.size > 0 && text.size() > parameter.size)
        text.resize(parameter.size);
    return text;
}

void callNextNumber(Connection& connection, std::vector<Parameter>& parameters) {
    const bool shaped = parameters.size() == 3 && parameters[0].direction == ParameterDirection::Input &&
                        parameters[1].direction == ParameterDirection::Input &&
                        parameters[2].direction == ParameterDirection::Output;
    if (!shaped)
        throw Error(ErrorKind::Statement, errors::errorsInCommand,
                    "Procedure 'usp_getNextNumber' expects the inputs 'tablename' and 'fieldname' and the output "
                    "'nextnumber'.");
    parameters[2].value = connection.nextNumber(inputText(parameters[0]), inputText(parameters[1]));
}

} // namespace

void Command::Execute() {
    if (ActiveConnection == nullptr || ActiveConnection->State() != stateOpen)
        throw Error(ErrorKind::State, errors::objectClosed, "Operation is not allowed when the object is closed.");
    if (Type == CommandType::Text) {
        ActiveConnection->Execute(CommandText);
        return;
    }
    if (!equalIgnoringCase(trim(CommandText), "usp_getNextNumber"))
        throw Error(ErrorKind::Statement, errors::errorsInCommand,
                    "Could not find stored procedure '" + CommandText + "'.", CommandText);
    callNextNumber(*ActiveConnection, Parameters);
}

} // namespace zel::ado
