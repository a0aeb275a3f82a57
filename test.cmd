@echo off
rem Builds everything on Windows and runs all tests: with Visual C++, or with the compiler of the preset
rem that is named, windows-clang-cl or windows-mingw. From an elevated prompt, since the wizard runs with
rem an administrator's rights, and with hands off mouse and keyboard, which the tests use.
setlocal
cd /d "%~dp0"
set preset=%1
if "%preset%"=="" set preset=windows-msvc

rem The others compile with the headers and libraries of Visual Studio.
if not "%preset%"=="windows-mingw" if "%VSCMD_VER%"=="" call :visual_studio
cmake --preset %preset% && cmake --build --preset %preset% && ctest --preset %preset%
exit /b %errorlevel%

:visual_studio
set PATH=%PATH%;%ProgramFiles(x86)%\Microsoft Visual Studio\Installer
for /f "delims=" %%i in ('vswhere -latest -property installationPath') do call "%%i\VC\Auxiliary\Build\vcvars64.bat"
exit /b
