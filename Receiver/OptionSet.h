#pragma once

#include <Poco/Util/OptionSet.h>

namespace wexel::receiver {

/// The options of the command line, those of all commands.
Poco::Util::OptionSet optionSet();

} // namespace wexel::receiver
