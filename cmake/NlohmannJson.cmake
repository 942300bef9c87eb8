# Sets nlohmann_json_include_dir to a folder with the headers of nlohmann-json and nothing else.
# They are found on the machine that builds, also in a cross-build. The folder that contains them
# there, such as /usr/include, must not be searched for headers of Windows.
find_path(NLOHMANN_JSON_HEADERS nlohmann/json.hpp PATHS /usr/include /usr/local/include NO_CMAKE_FIND_ROOT_PATH REQUIRED)
set(nlohmann_json_include_dir ${PROJECT_BINARY_DIR}/nlohmann-json)
file(COPY ${NLOHMANN_JSON_HEADERS}/nlohmann DESTINATION ${nlohmann_json_include_dir})
