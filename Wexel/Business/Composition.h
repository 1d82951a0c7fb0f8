#pragma once

#include <memory>

namespace wexel {

class Flow;
class WXLWexelPrivate;

/// Makes the real collaborators, which live for the process, and the instance behind the public entry. Main thread.
std::unique_ptr<WXLWexelPrivate> makeWexel(std::unique_ptr<Flow> flow);

} // namespace wexel
