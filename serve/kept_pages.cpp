#include "kept_pages.h"

#include <utility>

namespace serve {

std::shared_ptr<const Answer> KeptPages::Find(const TableList& tables, const Sighting& now,
                                              const std::string& request) {
  const std::scoped_lock lock(mutex_);
  if (tables_ != tables) return nullptr;
  const auto found = pages_.find(request);
  if (found == pages_.end() || found->second.begun_at < now.unchanged_since) return nullptr;
  return found->second.page;
}

void KeptPages::Keep(const TableList& tables, const Sighting& before, const std::string& request,
                     const Answer& page) {
  if (page.body.size() > kLongestPage) return;
  Kept made = {before.told_at, std::make_shared<const Answer>(page)};
  Pages dropped;
  const std::scoped_lock lock(mutex_);
  if (const auto old = pages_.find(request); old != pages_.end()) {
    bytes_ -= request.size() + old->second.page->body.size();
    dropped.insert(pages_.extract(old));
  }
  const std::size_t size = request.size() + page.body.size();
  if (tables_ != tables || pages_.size() >= kMostPages || bytes_ + size > kMostBytes) {
    dropped.merge(pages_);
    pages_.clear();
    bytes_ = 0;
    tables_ = tables;
  }
  bytes_ += size;
  pages_.emplace(request, std::move(made));
}

}  // namespace serve
