# vcpkg itself has never run this file: tests/vcpkg/check_port runs it with stand-ins for the functions of vcpkg.
# The sources are the checkout that contains this port. For a release, copy this folder out of the checkout and replace
# this line by vcpkg_from_git(OUT_SOURCE_PATH SOURCE_PATH URL <repository> REF <commit of the tag>).
get_filename_component(SOURCE_PATH "${CMAKE_CURRENT_LIST_DIR}/../../.." ABSOLUTE)

vcpkg_cmake_configure(
    SOURCE_PATH "${SOURCE_PATH}"
    OPTIONS
        -DVKSYSTEMINFO_APPS=OFF
        -DVKSYSTEMINFO_INSTALL=ON
        -DVKSYSTEMINFO_TESTS=OFF
        "-DNLOHMANN_JSON_HEADERS=${CURRENT_INSTALLED_DIR}/include"
)
vcpkg_cmake_install()
vcpkg_cmake_config_fixup(CONFIG_PATH lib/cmake/vkSystemInfo)
vcpkg_copy_pdbs()

file(REMOVE_RECURSE "${CURRENT_PACKAGES_DIR}/debug/include")
# The documents of the SDK. vkSystemInfo installs them beside lib/, where vcpkg expects folders only.
foreach(folder IN ITEMS "" /debug)
    foreach(name IN ITEMS CHANGELOG.md LICENSE README.md docs examples)
        file(REMOVE_RECURSE "${CURRENT_PACKAGES_DIR}${folder}/${name}")
    endforeach()
endforeach()

vcpkg_install_copyright(FILE_LIST "${SOURCE_PATH}/LICENSE")
file(INSTALL "${CMAKE_CURRENT_LIST_DIR}/usage" DESTINATION "${CURRENT_PACKAGES_DIR}/share/${PORT}")
