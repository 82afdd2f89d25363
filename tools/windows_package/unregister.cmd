@echo off
rem Removes V_Ruvex from the programs of this computer. Nothing in this folder is deleted.
call "%~dp0register.cmd" /remove %*
exit /b %errorlevel%
