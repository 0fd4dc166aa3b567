#include "dralo/page_stream.h"

#include <utility>

namespace dralo {

PageStream::PageStream(std::unique_ptr<Page> page, std::function<void(Page&)> write)
    : page_(std::move(page)), write_(std::move(write)) {
  page_->send = [this](const Page&, std::string_view piece) { Give(piece); };
  writer_ = std::thread([this] { WriteAll(); });
}

PageStream::~PageStream() {
  is_left_ = true;
  wanted_.release();
  writer_.join();
}

std::string_view PageStream::Next() {
  if (has_ended_) return {};
  wanted_.release();
  given_.acquire();
  if (failure_ != nullptr) std::rethrow_exception(std::exchange(failure_, nullptr));
  return piece_;
}

void PageStream::WriteAll() {
  wanted_.acquire();
  if (!is_left_) {
    try {
      write_(*page_);
    } catch (const Page::Ended&) {
    } catch (...) {
      failure_ = std::current_exception();
    }
  }
  piece_ = {};
  has_ended_ = true;
  given_.release();
}

void PageStream::Give(std::string_view piece) {
  if (is_left_) throw Page::Ended{};
  if (piece.empty()) return;
  piece_ = piece;
  given_.release();
  wanted_.acquire();
  if (is_left_) throw Page::Ended{};
}

}  // namespace dralo
