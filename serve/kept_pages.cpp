#include "kept_pages.h"

#include <functional>
#include <utility>

namespace serve {

bool KeptPages::IsAskedAgain(const TableList& tables, const std::string& request) {
  const std::scoped_lock lock(mutex_);
  RequireList(tables);
  if (asked_.size() >= kMostAsked) asked_.clear();
  return !asked_.insert(std::hash<std::string>()(request)).second;
}

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
  const std::scoped_lock lock(mutex_);
  RequireList(tables);
  if (const auto old = pages_.find(request); old != pages_.end()) {
    bytes_ -= request.size() + old->second.page->body.size();
    pages_.erase(old);
  }
  const std::size_t size = request.size() + page.body.size();
  if (pages_.size() >= kMostPages || bytes_ + size > kMostBytes) DropPages();
  bytes_ += size;
  pages_.emplace(request, std::move(made));
}

void KeptPages::RequireList(const TableList& tables) {
  if (tables_ == tables) return;
  tables_ = tables;
  asked_.clear();
  DropPages();
}

void KeptPages::DropPages() {
  pages_.clear();
  bytes_ = 0;
}

}  // namespace serve
