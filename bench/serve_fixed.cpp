// Serves one page that was made before, from a file, as dralo-serve serves its own.
//
//     bench_serve_fixed FILE       prints its port
#include <fstream>
#include <iostream>
#include <sstream>

#include "web_server.h"

int main(int count, char** words) {
  if (count != 2) return 2;
  std::ostringstream page;
  page << std::ifstream(words[1]).rdbuf();
  serve::WebServer server([&](const serve::Request&) { return serve::Answer{.body = page.str()}; });
  std::cout << server.Bind("127.0.0.1", 0) << std::endl;
  server.Serve();
}
