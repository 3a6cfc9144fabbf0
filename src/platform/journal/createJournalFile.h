#pragma once

#include "platform/journal/JournalEnvironment.h"
#include "platform/journal/JournalFile.h"

#include <memory>

namespace orrelo {

/// Makes, locks and publishes a journal, with both descriptors. Waits at most a second for the executor, then
/// makes it on the calling thread, as it does if `maker` is the writer. Null if it cannot be made.
std::shared_ptr<JournalFile> createJournalFile(const JournalEnvironment& environment,
                                               JournalFile::Maker maker);

/// Makes and locks a file under its temporary name on the calling thread. Null if it cannot be made.
std::shared_ptr<JournalFile> createTemporaryJournal(const JournalEnvironment& environment,
                                                    JournalFile::Maker maker);

/// Removes a file that is not used, and closes it.
void discard(const JournalEnvironment& environment, const std::shared_ptr<JournalFile>& file);

}  // namespace orrelo
