# The PHP that the extension is built for, and the programs of the same release, by what php-config says. For another
# PHP than the system's own: -DPHP_CONFIG=/usr/bin/php-config8.4

find_program(PHP_CONFIG NAMES php-config REQUIRED)

# ask_php_config(VARIABLE OPTION)
function(ask_php_config variable option)
  execute_process(COMMAND ${PHP_CONFIG} ${option} OUTPUT_VARIABLE answer OUTPUT_STRIP_TRAILING_WHITESPACE
                  COMMAND_ERROR_IS_FATAL ANY)
  set(${variable} ${answer} PARENT_SCOPE)
endfunction()

ask_php_config(php_version --version)
if(php_version VERSION_LESS 8.2 OR php_version VERSION_GREATER_EQUAL 8.5)
  message(FATAL_ERROR "Dralo is made for PHP 8.2 to 8.4, and ${PHP_CONFIG} belongs to PHP ${php_version}: name another "
                      "one by -DPHP_CONFIG")
endif()

# find_php_program(VARIABLE NAME): the program php, php-cgi or php-fpm of that release.
function(find_php_program variable name)
  ask_php_config(php --php-binary)
  get_filename_component(folder ${php} DIRECTORY)
  string(REGEX MATCH "[0-9.]*$" suffix ${php})
  find_program(${variable} NAMES ${name}${suffix} ${name} HINTS ${folder} ${folder}/../sbin REQUIRED)
  execute_process(COMMAND ${${variable}} -n -v OUTPUT_VARIABLE answer COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX MATCH "^[0-9]+\\.[0-9]+\\." release ${php_version})
  string(FIND "${answer}" "PHP ${release}" position)
  if(NOT position EQUAL 0)
    message(FATAL_ERROR "${${variable}} is not of PHP ${php_version}, which ${PHP_CONFIG} belongs to: "
                        "remove ${PROJECT_BINARY_DIR}/CMakeCache.txt, or set ${variable}")
  endif()
endfunction()
