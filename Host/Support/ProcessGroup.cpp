#include "HostSupport/ProcessGroup.h"

#include "Platform.h"

#include <atomic>

namespace {

constexpr std::intptr_t none = 0;

std::atomic<std::intptr_t> present{none};
static_assert(std::atomic<std::intptr_t>::is_always_lock_free, "signal handlers take no lock");

} // namespace

void ProcessGroup::enter() {
  platformEnterGroup();
}

void ProcessGroup::adopt(std::int64_t process) {
  m_handle = platformAdoptProcess(process);
  present = m_handle;
}

void ProcessGroup::endPresent() {
  const std::intptr_t group = present.exchange(none);
  if (group != none)
    platformEndGroup(group);
}

bool ProcessGroup::wasEnded() const {
  return m_handle != none && present != m_handle;
}

ProcessGroup::~ProcessGroup() {
  if (m_handle == none)
    return;
  present = none;
  platformEndGroup(m_handle);
  platformCloseGroup(m_handle);
}
