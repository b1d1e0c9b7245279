#pragma once

#include "ado/error.h"

namespace zel::ado {

/// The three ways in which a conversion fails, with the descriptions that clerks know.
[[noreturn]] inline void throwTypeMismatch() {
    throw Error(ErrorKind::Conversion, errors::typeMismatch, "Type mismatch");
}
[[noreturn]] inline void throwOverflow() {
    throw Error(ErrorKind::Conversion, errors::overflow, "Overflow");
}
[[noreturn]] inline void throwInvalidUseOfNull() {
    throw Error(ErrorKind::Conversion, errors::invalidUseOfNull, "Invalid use of Null");
}

} // namespace zel::ado
