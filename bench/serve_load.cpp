// Asks a server for one page again and again, by several clients at once with a connection each. Behind a
// target that ends with "=" comes a number, which is another one for each request.
//
//     bench_serve_load PORT TARGET CLIENTS REQUESTS_EACH       prints requests a second
#include <httplib.h>

#include <atomic>
#include <chrono>
#include <iostream>
#include <string>
#include <thread>
#include <vector>

namespace {

/// Whether all answers were pages. `first` is the number of the first request.
bool Ask(int port, const std::string& target, int first, int requests) {
  httplib::Client client("127.0.0.1", port);
  client.set_keep_alive(true);
  client.set_tcp_nodelay(true);
  for (int i = first; i < first + requests; ++i) {
    const auto answer = client.Get(target.ends_with('=') ? target + std::to_string(i) : target);
    if (!answer || answer->status != 200) return false;
  }
  return true;
}

}  // namespace

int main(int count, char** words) {
  if (count != 5) return 2;
  const int clients = std::stoi(words[3]);
  const int requests = std::stoi(words[4]);
  std::atomic<bool> is_well = true;
  const auto start = std::chrono::steady_clock::now();
  {
    std::vector<std::jthread> threads;
    for (int i = 0; i < clients; ++i)
      threads.emplace_back([&, first = i * requests] {
        if (!Ask(std::stoi(words[1]), words[2], first, requests)) is_well = false;
      });
  }
  const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start;
  if (!is_well) return 1;
  std::cout << clients * requests / passed.count() << '\n';
}
