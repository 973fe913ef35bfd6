// Last words before a signal ends the process.
#pragma once

namespace corvane::platform {

/// From now on SIGTERM, SIGINT and SIGHUP call `lastWords`, and then end the process as they would
/// have. The call is made on a thread of its own, so it may do anything; the other threads run on
/// meanwhile. A second signal does not wait for it.
///
/// Only a signal that would end the process is taken over: what the application handles, ignores or
/// blocks stays as it is, and a handler that it installs later replaces this. SIGQUIT, which asks
/// for an image of the process as it stands, and the signals of crashes are left alone. A forked
/// child has none of this until it asks anew. The process with the number 1, which such signals do
/// not end, is left alone too.
///
/// To be called from one thread at a time; a later call replaces the last words. False where the
/// system has no thread or pipe for it.
bool speakBeforeTermination(void (*lastWords)());

}  // namespace corvane::platform
