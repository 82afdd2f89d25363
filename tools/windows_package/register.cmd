@echo off
rem Registers V_Ruvex with this computer, so that programs find it.
rem   /remove    removes it from there again
rem   /quiet     does not wait for a key at the end
setlocal DisableDelayedExpansion
set "script=%~f0"
set "folder=%~dp0"
set "action=register"
set "wait=yes"
set "elevated=no"
:options
if "%~1"=="" goto begin
if /i "%~1"=="/remove" set "action=remove"
if /i "%~1"=="/quiet" set "wait=no"
if /i "%~1"=="/elevated" set "elevated=yes"
shift
goto options

:begin
rem Started by a program of 32 bits, this file finds the system's 64-bit programs in Sysnative.
set "system=%SystemRoot%\System32"
if exist "%SystemRoot%\Sysnative\regsvr32.exe" set "system=%SystemRoot%\Sysnative"
set "programs=%ProgramFiles%"
if defined ProgramW6432 set "programs=%ProgramW6432%"
set "maker=%programs%\Osterlin"
set "product=%maker%\Velmar 4.3 for DS10 (64bit)"
set "manuals=%product%\Documentation"
set "manual=Velmar4.3.pdf"
set "result=1"

if not exist "%folder%V_Ruvex.dll" goto incomplete
if "%action%"=="remove" goto remove

"%system%\regsvr32.exe" /s "%folder%V_Ruvex.dll"
set "result=%errorlevel%"
if not "%result%"=="0" goto failed
echo V_Ruvex is registered. Leave this folder where it is: programs load V_Ruvex from here.
if not exist "%folder%Documentation\%manual%" goto end
if not exist "%manuals%" mkdir "%manuals%"
copy /y "%folder%Documentation\%manual%" "%manuals%\%manual%" >nul
if errorlevel 1 goto nomanual
echo The manual is in "%manuals%".
goto end

:nomanual
echo The manual could not be copied to "%manuals%".
echo Open it from the folder Documentation.
set "result=1"
goto end

:remove
"%system%\reg.exe" query HKLM\Software\V_Ruvex >nul 2>nul
if errorlevel 1 goto absent
"%system%\regsvr32.exe" /s /u "%folder%V_Ruvex.dll"
set "result=%errorlevel%"
if not "%result%"=="0" goto failed
echo V_Ruvex is no longer registered. You can delete this folder.
goto removemanual

:absent
echo V_Ruvex is not registered.
set "result=0"

:removemanual
rem Only the manual that comes with this folder, and folders that are then empty.
if not exist "%folder%Documentation\%manual%" goto end
if exist "%manuals%\%manual%" del /q "%manuals%\%manual%"
rmdir "%manuals%" 2>nul
rmdir "%product%" 2>nul
rmdir "%maker%" 2>nul
goto end

:incomplete
echo V_Ruvex.dll is not beside this file. Extract the whole zip file first, then start this file again.
goto end

:failed
rem regsvr32 ends with 5 when the module could not write the registry.
if "%result%"=="5" if "%elevated%"=="no" goto elevate
if "%result%"=="5" echo The registry could not be written. Administrator rights are required.
if "%result%"=="3" echo V_Ruvex.dll could not be loaded. It requires 64-bit Windows and the DLLs in this folder.
echo Nothing was changed (regsvr32 ended with %result%).
goto end

:elevate
rem The entries are for all users of the computer. The system asks for the rights.
echo Administrator rights are required. Please answer the system's question.
set "RUVEX_SCRIPT=%script%"
set "RUVEX_OPTIONS=/elevated"
if "%action%"=="remove" set "RUVEX_OPTIONS=%RUVEX_OPTIONS% /remove"
if "%wait%"=="no" set "RUVEX_OPTIONS=%RUVEX_OPTIONS% /quiet"
rem $q is a double quote. cmd removes the outer two; the inner two enclose the path.
set "RUVEX_START=$q = [string][char]34; $line = '/d /c ' + $q + $q + $env:RUVEX_SCRIPT + $q + ' ' + $env:RUVEX_OPTIONS + $q"
set "RUVEX_START=%RUVEX_START%; try { exit (Start-Process -FilePath $env:ComSpec -ArgumentList $line -Verb RunAs -Wait -PassThru).ExitCode } catch { exit 5 }"
"%system%\WindowsPowerShell\v1.0\powershell.exe" -NoProfile -Command "%RUVEX_START%"
set "result=%errorlevel%"
if "%result%"=="5" echo Nothing was changed.
if "%result%"=="0" exit /b 0

:end
if "%wait%"=="yes" pause
exit /b %result%
