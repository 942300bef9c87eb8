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
if "%qt%"=="" (echo usage: check-msvc-abi.cmd QT, such as C:\Qt\5.15.2\msvc2019_64& exit /b 2)
if not exist "%qt%\bin\Qt5Core.dll" (echo check-msvc-abi: "%qt%\bin\Qt5Core.dll" does not exist& exit /b 2)
rem The variable CL would have options for cl.
set "found_cl="
set "found_dumpbin="
for %%p in (cl.exe) do set "found_cl=%%~$PATH:p"
for %%p in (dumpbin.exe) do set "found_dumpbin=%%~$PATH:p"
if not defined found_cl (echo check-msvc-abi: cl is not in PATH: use a command prompt of Visual Studio& exit /b 2)
if not defined found_dumpbin (echo check-msvc-abi: dumpbin is not in PATH: use a command prompt of Visual Studio& exit /b 2)
set "PATH=%here%bin;%qt%\bin;%PATH%"
if not exist "%here%result\" mkdir "%here%result"
if not exist "%here%result\" (echo check-msvc-abi: cannot create "%here%result"& exit /b 2)
cd /d "%here%result"

dumpbin /nologo /imports "%here%bin\vkSystemInfo.dll" >imports.txt
if not %errorlevel%==0 exit /b 2
for %%m in (Core Gui Network OpenGL PrintSupport) do (
  dumpbin /nologo /exports "%qt%\bin\Qt5%%m.dll" >Qt5%%m.txt
  if errorlevel 1 exit /b 2
)
cl /nologo /std:c++17 /EHsc /W4 "%here%check\compare_names.cpp" >compare_names.log
if not %errorlevel%==0 (type compare_names.log& exit /b 2)
compare_names.exe imports.txt Qt5Core.txt Qt5Gui.txt Qt5Network.txt Qt5OpenGL.txt Qt5PrintSupport.txt
if not %errorlevel%==0 (echo FAILED  names: the library cannot be loaded with this Qt& exit /b 1)

cl /nologo /std:c++17 /Zc:__cplusplus /permissive- /EHsc /MD /O2 /I"%here%include" /I"%qt%\include" /I"%qt%\include\QtCore" "%here%check\all_infos.cpp" /link /LIBPATH:"%here%lib" /LIBPATH:"%qt%\lib" vkSystemInfo.lib Qt5Core.lib Qt5Gui.lib Qt5Widgets.lib >all_infos.log
if not %errorlevel%==0 (type all_infos.log& echo FAILED  build of the host& exit /b 1)
set "QT_PLUGIN_PATH=%qt%\plugins"
rem The exit code of a crash is negative.
all_infos.exe >report.txt
if not %errorlevel%==0 (echo FAILED  call of the host& exit /b 1)
echo ok      result\report.txt has the report
