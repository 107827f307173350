#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "platform/hosted/HostCalls.h"

namespace norvo {

/// Is told how many bytes more are done, at least once per megabyte.
using ByteSink = std::function<void(std::uint64_t more)>;

/// Stands beside the `errno` values: the source ended early, grew or was written to meanwhile.
inline constexpr int kSourceChanged = -1;

/// Copies a file whole, by the quickest way that the host has between the two, and its times.
/// `facts` are those of the open source, from before; the target is new and empty. 0, `errno` or
/// kSourceChanged. The bytes are on their way to the disk afterwards, not yet flushed.
int CopyFile(const HostFile& source, const HostFacts& facts, const HostFile& target,
             const ByteSink& sink);

/// Claims the space that a file is going to take. False, with the reason in `errno`, when the disk
/// says that it has not got it; a disk that cannot say so has it.
bool ClaimSpace(const HostFile& file, std::uint64_t size);

/// True when two files hold the same `size` bytes; nothing, with the reason in `errno`, when one
/// cannot be read. A file that ends before is another one.
std::optional<bool> SameBytes(const HostFile& left, const HostFile& right, std::uint64_t size,
                              const ByteSink& sink);

/// Lets the file's last access be as it is when it is read, where the host lets us.
void KeepAccessTime(const HostFile& file);

}  // namespace norvo
