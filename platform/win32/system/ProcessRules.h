// What the whole process keeps to, whoever works in it. To be called before anything else.
#pragma once

namespace kv {

// From now on the process looks for libraries in the system folder only, whoever asks for them and
// wherever the program lies; it cannot be undone.
void useSystemLibrariesOnly() noexcept;

// A drive without a disk is a failure like others, for which the system asks the user nothing.
void askForNoDisk() noexcept;

// Where the system knows how, the process refuses links between folders that ordinary users have
// planted: the wizard has an administrator's rights and works in folders that others may write to.
// Paths through such a link fail from now on.
void refusePlantedLinks() noexcept;

}  // namespace kv
