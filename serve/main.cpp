#include <malloc.h>
#include <pthread.h>
#include <signal.h>

#include <algorithm>
#include <exception>
#include <iostream>
#include <thread>

#include "host_names.h"
#include "options.h"
#include "site.h"
#include "web_server.h"

namespace serve {
namespace {

constexpr int kCannotServe = 1;
constexpr int kWrongUsage = 2;

std::string Bracketed(const std::string& host) {
  return host.find(':') == host.npos ? host : "[" + host + "]";
}

/// The signals that end the program. They are blocked in all threads, so that one thread can wait for them.
sigset_t BlockEnds() {
  sigset_t ends;
  sigemptyset(&ends);
  sigaddset(&ends, SIGINT);
  sigaddset(&ends, SIGTERM);
  sigaddset(&ends, SIGHUP);
  pthread_sigmask(SIG_BLOCK, &ends, nullptr);
  return ends;
}

/// Every page is large for a moment: giving the memory back each time costs more than making the page.
void KeepMemory() {
  constexpr int kKeptBytes = 16 * 1024 * 1024;
  mallopt(M_TRIM_THRESHOLD, kKeptBytes);
  mallopt(M_MMAP_THRESHOLD, kKeptBytes);
  mallopt(M_ARENA_MAX, 4);
}

void Announce(const Options& options, int port) {
  const std::string host = options.host == "0.0.0.0" || options.host == "::" ? "127.0.0.1" : options.host;
  std::cout << ShownName(options) << " is at http://" << Bracketed(host) << ':' << port << "/ "
            << (options.can_edit ? "for reading and editing" : "for reading") << "; Ctrl-C stops it"
            << std::endl;
  if (options.user_file.empty() && !IsLoopback(options.host)) {
    std::cerr << "dralo-serve: everybody who can reach " << options.host << " can "
              << (options.can_edit ? "read and change" : "read")
              << " this database; --user-file asks for a name\n";
  }
}

/// Serves until a signal comes; a second signal ends the program at once.
void ServeUntilSignal(WebServer& server, const sigset_t& ends) {
  std::thread waiter([&] {
    int number = 0;
    sigwait(&ends, &number);
    pthread_sigmask(SIG_UNBLOCK, &ends, nullptr);
    server.Stop();
  });
  server.Serve();
  waiter.join();
}

int Run(const Options& options) {
  if (options.shows_help) {
    std::cout << HelpText();
    return 0;
  }
  if (options.shows_version) {
    std::cout << "dralo-serve " << DRALO_VERSION << '\n';
    return 0;
  }
  RequireFile(options);
  KeepMemory();
  dralo::Environment::LimitIdleConnections(kMostClients);
  const sigset_t ends = BlockEnds();
  Site site(options);
  WebServer server([&site](const Request& request) { return site.Respond(request); });
  const int port = server.Bind(options.host, options.port);
  Announce(options, port);
  ServeUntilSignal(server, ends);
  return 0;
}

/// The message is on one line, whatever the database says.
int Complain(std::string text, int status) {
  std::ranges::replace(text, '\n', ' ');
  std::cerr << "dralo-serve: " << text << '\n';
  return status;
}

}  // namespace
}  // namespace serve

int main(int count, char** words) {
  try {
    return serve::Run(serve::ParseOptions({words + 1, static_cast<std::size_t>(count > 0 ? count - 1 : 0)}));
  } catch (const serve::WrongUsage& error) {
    return serve::Complain(error.what(), serve::kWrongUsage);
  } catch (const std::exception& error) {
    return serve::Complain(error.what(), serve::kCannotServe);
  }
}
