#pragma once

#include <exception>
#include <functional>
#include <memory>
#include <semaphore>
#include <string_view>
#include <thread>

#include "dralo/export.h"
#include "dralo/page.h"

namespace dralo {

/// A page that a thread of its own writes while another one takes it piece by piece: for servers that ask for
/// the next piece instead of being given it, so that a download is never collected. One piece is kept at a
/// time; a server that does not ask holds the writing up. Its functions are called by one thread at a time.
/// What `write` uses must live until the stream is destroyed, which waits for it.
class DRALO_EXPORT PageStream {
 public:
  /// `write` writes `page`, whose `send` belongs to the stream; it begins at the first Next(). When it throws
  /// Page::Ended, the page ends as usual.
  PageStream(std::unique_ptr<Page> page, std::function<void(Page&)> write);

  /// Lets `write` run up to its next piece at most, where it meets Page::Ended, and waits until it has ended.
  ~PageStream();
  PageStream(const PageStream&) = delete;
  PageStream& operator=(const PageStream&) = delete;

  /// The next piece, valid until the next call; empty at the end. Rethrows, once, what `write` has thrown.
  std::string_view Next();

  /// The page; its status, type and headers are complete after the first Next().
  const Page& Written() const { return *page_; }

 private:
  void WriteAll();
  void Give(std::string_view piece);

  std::unique_ptr<Page> page_;
  std::function<void(Page&)> write_;
  std::string_view piece_;
  std::exception_ptr failure_;
  bool has_ended_ = false;
  bool is_left_ = false;
  std::counting_semaphore<> wanted_{0};
  std::counting_semaphore<> given_{0};
  std::thread writer_;
};

}  // namespace dralo
