#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>
#include <utility>

namespace dralo::tests {

/// A process of its own that runs `body` and hands back the text that it returns.
class ChildProcess {
 public:
  template <class Body>
  explicit ChildProcess(Body&& body) {
    int ends[2];
    EXPECT_EQ(pipe(ends), 0);
    id_ = fork();
    if (id_ == 0) {
      close(ends[0]);
      const std::string text = std::forward<Body>(body)();
      const auto written = write(ends[1], text.data(), text.size());
      _exit(written == static_cast<ssize_t>(text.size()) ? 0 : 1);
    }
    close(ends[1]);
    read_end_ = ends[0];
  }
  ~ChildProcess() { close(read_end_); }
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  pid_t Id() const { return id_; }

  /// Waits for its end. Returns the signal that ended it, 0 when none did.
  int Wait() {
    char buffer[4096];
    for (ssize_t size = 0; (size = read(read_end_, buffer, sizeof buffer)) > 0;) {
      text_.append(buffer, static_cast<std::size_t>(size));
    }
    int status = 0;
    EXPECT_EQ(waitpid(id_, &status, 0), id_);
    return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
  }

  /// What it handed back before it ended.
  const std::string& Text() const { return text_; }

 private:
  pid_t id_ = -1;
  int read_end_ = -1;
  std::string text_;
};

}  // namespace dralo::tests
