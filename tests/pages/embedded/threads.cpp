// A server with threads: each runs the script once per request, side by side with the others, and compares
// what it writes with "ok REQUEST" and nothing else.
//
// usage: threads EXTENSION SCRIPT FOLDER THREADS REQUESTS
// FOLDER has a database N.db for each thread N.

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

#include <dlfcn.h>
#include <sapi/embed/php_embed.h>

#ifndef ZTS
#error "This program needs a PHP with thread safety"
#endif

namespace {

// What the thread's script has written, and the server's variables of its request.
thread_local std::string written;
thread_local std::vector<std::pair<std::string, std::string>> variables;

std::atomic<int> failures = 0;

zend_module_entry* extension = nullptr;

/// Loaded here and not by the engine, which binds libraries in a way that no sanitizer can follow.
zend_module_entry* LoadExtension(const char* file) {
  void* library = dlopen(file, RTLD_NOW | RTLD_GLOBAL);
  if (library == nullptr) {
    std::fprintf(stderr, "%s\n", dlerror());
    return nullptr;
  }
  return reinterpret_cast<zend_module_entry* (*)()>(dlsym(library, "get_module"))();
}

int StartUp(sapi_module_struct* server) { return php_module_startup(server, extension); }

size_t Write(const char* text, size_t length) {
  written.append(text, length);
  return length;
}

void RegisterVariables(zval* array) {
  for (const auto& [name, value] : variables) php_register_variable(name.c_str(), value.c_str(), array);
}

/// To its end or to its exit().
void RunScript(const char* file) {
  zend_file_handle script;
  zend_stream_init_filename(&script, file);
  zend_first_try { php_execute_script(&script); }
  zend_end_try();
  zend_destroy_file_handle(&script);
}

void Answer(const char* script, const std::string& folder, int thread, int request) {
  written.clear();
  const std::string query = "Morvu1CurrRecord=" + std::to_string(request % 17 + 1);
  variables = {{"DATABASE", folder + "/" + std::to_string(thread) + ".db"},
               {"REQUEST", std::to_string(request)},
               {"SCRIPT_NAME", "/thread" + std::to_string(thread)}};
  SG(request_info) = {};
  SG(request_info).request_method = "GET";
  SG(request_info).query_string = const_cast<char*>(query.c_str());
  SG(server_context) = &variables;
  if (php_request_startup() == FAILURE) std::abort();
  RunScript(script);
  php_request_shutdown(nullptr);
  if (written == "ok " + std::to_string(request)) return;
  if (failures++ < 5) std::printf("thread %d, request %d: %s\n", thread, request, written.c_str());
}

void Serve(const char* script, const std::string& folder, int thread, int requests) {
  static_cast<void>(ts_resource(0));
  for (int request = 0; request < requests; ++request) Answer(script, folder, thread, request);
  ts_free_thread();
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 6) {
    std::fputs("usage: threads EXTENSION SCRIPT FOLDER THREADS REQUESTS\n", stderr);
    return 2;
  }
  extension = LoadExtension(arguments[1]);
  if (extension == nullptr) return 1;
  php_embed_module.startup = StartUp;
  php_embed_module.ub_write = Write;
  php_embed_module.register_server_variables = RegisterVariables;
  if (php_embed_init(1, arguments) == FAILURE) return 1;
  php_request_shutdown(nullptr);
  std::vector<std::thread> threads;
  for (int thread = 0; thread < std::atoi(arguments[4]); ++thread) {
    threads.emplace_back(Serve, arguments[2], std::string(arguments[3]), thread, std::atoi(arguments[5]));
  }
  for (std::thread& thread : threads) thread.join();
  static_cast<void>(php_request_startup());
  php_embed_shutdown();
  std::printf("%d requests failed\n", failures.load());
  return failures == 0 ? 0 : 1;
}
