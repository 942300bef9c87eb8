@echo off
rem Checks the library of this package with MSVC and a Qt 5.15 built by MSVC.
rem
rem   check-msvc-abi.cmd QT
rem
rem QT is Qt's folder, such as C:\Qt\5.15.2\msvc2019_64. Run it in an "x64 Native Tools Command
rem Prompt" of Visual Studio 2019 or later, in the unpacked package: it writes to the folder "result".
rem First it compares the names that the library imports from Qt with those that Qt exports. Then it
rem builds a host that calls allInfos. docs\msvc-abi.md says what it prints.
setlocal
set "qt=%~1"
set "here=%~dp0"
if "%qt%"=="" echo usage: check-msvc-abi.cmd QT, such as C:\Qt\5.15.2\msvc2019_64& exit /b 2
if not exist "%qt%\bin\Qt5Core.dll" echo check-msvc-abi: "%qt%\bin\Qt5Core.dll" does not exist& exit /b 2
where cl >nul 2>nul || (echo check-msvc-abi: cl is not in PATH: use a command prompt of Visual Studio& exit /b 2)
where dumpbin >nul 2>nul || (echo check-msvc-abi: dumpbin is not in PATH: use a command prompt of Visual Studio& exit /b 2)
set "PATH=%here%bin;%qt%\bin;%PATH%"
if not exist "%here%result" mkdir "%here%result"
cd /d "%here%result" || exit /b 2

dumpbin /nologo /imports "%here%bin\vkSystemInfo.dll" >imports.txt || exit /b 2
for %%m in (Core Gui Network OpenGL PrintSupport) do dumpbin /nologo /exports "%qt%\bin\Qt5%%m.dll" >Qt5%%m.txt || exit /b 2
cl /nologo /std:c++17 /EHsc /W4 "%here%check\compare_names.cpp" >compare_names.log || (type compare_names.log& exit /b 2)
compare_names.exe imports.txt Qt5Core.txt Qt5Gui.txt Qt5Network.txt Qt5OpenGL.txt Qt5PrintSupport.txt || (echo FAILED  names: the library cannot be loaded with this Qt& exit /b 1)

cl /nologo /std:c++17 /Zc:__cplusplus /permissive- /EHsc /MD /O2 /I"%here%include" /I"%qt%\include" /I"%qt%\include\QtCore" "%here%check\call_all_infos.cpp" /link /LIBPATH:"%here%lib" /LIBPATH:"%qt%\lib" vkSystemInfo.lib Qt5Core.lib Qt5Gui.lib Qt5Widgets.lib >call_all_infos.log || (type call_all_infos.log& echo FAILED  build of the host& exit /b 1)
set "QT_PLUGIN_PATH=%qt%\plugins"
call_all_infos.exe >report.txt || (echo FAILED  call of the host& exit /b 1)
echo ok      result\report.txt has the report
