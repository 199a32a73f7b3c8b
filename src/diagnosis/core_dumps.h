#pragma once

namespace vantor {

/// From now on the system keeps no dump of this process and of those that it starts: what is in
/// memory has the password in it. Whoever needs one raises the limit: `prlimit --core=unlimited
/// --pid`.
void preventCoreDumps();

}  // namespace vantor
