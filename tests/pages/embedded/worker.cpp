// A server that answers several requests with one script, as servers with "workers" do: it ends and begins
// requests while the script goes on. The script calls next_request(QUERY) and answers what it then finds.
//
// usage: worker SETTINGS SCRIPT
// SETTINGS is a php.ini.

#include <cstdio>
#include <string>

#include <sapi/embed/php_embed.h>
#include <zend_exceptions.h>

namespace {

/// Of the request that is being answered; the engine keeps a pointer.
std::string query_string;

void EndRequest() {
  php_output_end_all();
  php_output_deactivate();
  SG(request_info).query_string = nullptr;
  sapi_deactivate();
}

void BeginRequest(const std::string& query) {
  query_string = query;
  php_output_activate();
  SG(request_info) = {};
  SG(request_info).request_method = "GET";
  SG(request_info).query_string = query_string.data();
  SG(server_context) = nullptr;
  sapi_activate();
}

void NextRequest(INTERNAL_FUNCTION_PARAMETERS) {
  (void)return_value;
  char* query = nullptr;
  size_t length = 0;
  ZEND_PARSE_PARAMETERS_START(1, 1)
  Z_PARAM_STRING(query, length)
  ZEND_PARSE_PARAMETERS_END();
  EndRequest();
  BeginRequest(std::string(query, length));
}

ZEND_BEGIN_ARG_WITH_RETURN_TYPE_INFO_EX(next_request_arginfo, 0, 1, IS_VOID, 0)
ZEND_ARG_TYPE_INFO(0, query, IS_STRING, 0)
ZEND_END_ARG_INFO()

const zend_function_entry kFunctions[] = {ZEND_NAMED_FE(next_request, NextRequest, next_request_arginfo)
                                              ZEND_FE_END};

}  // namespace

int main(int count, char** arguments) {
  if (count != 3) {
    std::fputs("usage: worker SETTINGS SCRIPT\n", stderr);
    return 2;
  }
  php_embed_module.php_ini_path_override = arguments[1];
  php_embed_module.php_ini_ignore = 1;
  if (php_embed_init(1, arguments) == FAILURE) return 1;
  zend_register_functions(nullptr, kFunctions, nullptr, MODULE_PERSISTENT);
  volatile bool is_run = false;
  zend_file_handle script;
  zend_stream_init_filename(&script, arguments[2]);
  zend_first_try { is_run = static_cast<bool>(php_execute_script(&script)); }
  zend_end_try();
  zend_destroy_file_handle(&script);
  php_embed_shutdown();
  return is_run ? 0 : 1;
}
