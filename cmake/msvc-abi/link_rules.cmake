# The linker is called directly. The libraries of the targets do not exist here:
# link_in_msvc_abi() adds the import libraries that it made.
set(linker "<CMAKE_LINKER> /nologo /machine:x64 /nodefaultlib /opt:ref /opt:icf /dynamicbase /highentropyva /nxcompat /out:<TARGET>")
set(CMAKE_CXX_LINK_EXECUTABLE "${linker} <LINK_FLAGS> <OBJECTS>")
set(CMAKE_CXX_CREATE_SHARED_LIBRARY
    "${linker} /dll /entry:_DllMainCRTStartup /implib:<TARGET_IMPLIB> <LINK_FLAGS> <OBJECTS>")
unset(linker)
