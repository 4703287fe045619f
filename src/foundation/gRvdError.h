#pragma once

#include <string_view>

namespace qb {

/// The last resort of an error handler: turns the pending error into one standard line for the protocol and a
/// box, and clears it. Without a pending error nothing happens. All but `module`, `procedure` and `extraText`
/// serves only to keep the signature.
void gRvdError(std::string_view module, std::string_view procedure, std::string_view description,
               const long& helpContext, std::string_view helpFile, const long& lastDllError,
               const long& errorNumber, std::string_view source, std::string_view extraText);

/// The call as all procedures make it.
void gRvdError(std::string_view module, std::string_view procedure, std::string_view extraText = {});

}  // namespace qb
