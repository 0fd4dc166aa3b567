#include "driver/posted_change.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "driver/refused_post.h"
#include "editing/update_engine.h"
#include "state/posted_form.h"
#include "text/letter_case.h"

namespace dralo::driver {
namespace {

using state::PostedChange;
using state::Render;

/// The posted changes that the views of a page have carried out.
class PostedChanges final : public platform::PageMemory {
 public:
  /// The change that was posted to views of the tag; nullptr as long as it was not carried out. Tags are
  /// compared as in request keys.
  std::shared_ptr<const PostedChange>& Of(std::string_view tag) {
    for (auto& [known, change] : changes_) {
      if (text::EqualIgnoringCase(known, tag)) return change;
    }
    return changes_.emplace_back(tag, nullptr).second;
  }

 private:
  std::vector<std::pair<std::string, std::shared_ptr<const PostedChange>>> changes_;
};

PostedChanges& ChangesOf(platform::PageContext& page) {
  std::shared_ptr<platform::PageMemory>& memory = page.Memory();
  if (memory == nullptr) memory = std::make_shared<PostedChanges>();
  return static_cast<PostedChanges&>(*memory);
}

std::shared_ptr<const PostedChange> CarryOut(Render& render, platform::Response& response) {
  if (!RefusesChange(render, response)) render.outcome.has_failed_to_save = !editing::UpdateRecord(render);
  return std::make_shared<PostedChange>(
      PostedChange{.change = render.outcome.change,
                   .saved_key = render.outcome.saved_key,
                   .has_failed = render.outcome.has_failed_to_save,
                   .shows_stored_record = render.outcome.shows_stored_record,
                   .is_refused = render.outcome.is_refused,
                   .has_lost_change = render.outcome.has_lost_change,
                   .field_notes = render.outcome.field_notes,
                   .status_message = render.outcome.status_message,
                   .errors = render.outcome.errors,
                   .error_detail = render.outcome.error_detail});
}

/// On a hardened view a refused change counts too: the visitor is told of it.
bool IsChangePosted(const Render& render) {
  if (editing::IsChangePosted(render)) return true;
  const settings::Settings& settings = render.settings;
  return settings.Hardened && !settings.EditOptions.empty() &&
         state::CommandsChange(render.keys.GetRequest(), settings.Tag);
}

void TakeOutcome(Render& render, const PostedChange& change) {
  render.outcome.change = change.change;
  render.outcome.saved_key = change.saved_key;
  render.outcome.has_failed_to_save = change.has_failed;
  render.outcome.shows_stored_record = change.shows_stored_record;
  render.outcome.is_refused = change.is_refused;
  render.outcome.has_lost_change = change.has_lost_change;
  render.outcome.field_notes = change.field_notes;
  render.outcome.status_message = change.status_message;
}

}  // namespace

void CarryOutPostedChange(Render& render, platform::PageContext& page) {
  const settings::Settings& settings = render.settings;
  if (!settings.EditPerformUpdates || !IsChangePosted(render)) return;
  std::shared_ptr<const PostedChange>& change = ChangesOf(page).Of(settings.Tag);
  if (change == nullptr) {
    change = CarryOut(render, page.GetResponse());
  } else {
    TakeOutcome(render, *change);
    if (render.outcome.reported_change != change)
      render.Errors().AddAll(change->errors, change->error_detail);
  }
  render.outcome.reported_change = change;
}

}  // namespace dralo::driver
