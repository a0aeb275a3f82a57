@echo off
rem The wizard's work as a command script. The settings' separators are the bytes 0x0F and 0x10.
rem   setup.cmd PROGRAM PRODUCT HOME SCRIPTS
md "%~3\kv"
md "%~3\images"
md "%~3\images\kv"
md "%~3\images\kv\cimg"
md "%~3\images\kv\kvimg"
md "%~4\kv"
md "%~4\kv\kvi"
copy /b /y "%~2\bin\kv.exe" "%~4\kv\kv.exe" > nul
copy /b /y "%~2\bin\kvabout.exe" "%~4\kv\kvabout.exe" > nul
copy /b /y "%~2\bin\kvcfg.exe" "%~4\kv\kvcfg.exe" > nul
copy /b /y "%~2\bin\kvclpbd.exe" "%~4\kv\kvclpbd.exe" > nul
copy /b /y "%~2\bin\kvdir.exe" "%~4\kv\kvdir.exe" > nul
copy /b /y "%~2\bin\kvfile.exe" "%~4\kv\kvfile.exe" > nul
copy /b /y "%~2\bin\kvhlp.exe" "%~4\kv\kvhlp.exe" > nul
copy /b /y "%~2\bin\kvimg.exe" "%~4\kv\kvimg.exe" > nul
copy /b /y "%~2\bin\kvjs.exe" "%~4\kv\kvjs.exe" > nul
copy /b /y "%~2\bin\kvlogon.exe" "%~4\kv\kvlogon.exe" > nul
copy /b /y "%~2\bin\kvwlcm.exe" "%~4\kv\kvwlcm.exe" > nul
copy /b /y "%~2\bin\qtmdb.dll" "%~4\kv\qtmdb.dll" > nul
copy /b /y "%~2\bin\QTnbwB.dll" "%~4\kv\QTnbwB.dll" > nul
copy /b /y "%~2\web-root\kv\favicon.ico" "%~3\kv\favicon.ico" > nul
copy /b /y "%~2\web-root\kv\index.html" "%~3\kv\index.html" > nul
copy /b /y "%~2\web-root\kv\Default.htm" "%~3\kv\Default.htm" > nul
copy /b /y "%~2\web-root\favicon.ico" "%~3\favicon.ico" > nul
copy /b /y "%~2\web-root\index.html" "%~3\index.html" > nul
copy /b /y "%~2\web-root\Default.htm" "%~3\Default.htm" > nul
copy /b /y "%~2\web-root\images\kvimg\arrowlsd.gif" "%~3\images\kv\kvimg\arrowlsd.gif" > nul
copy /b /y "%~2\web-root\images\kvimg\arrowlse.gif" "%~3\images\kv\kvimg\arrowlse.gif" > nul
copy /b /y "%~2\web-root\images\kvimg\arrowrsd.gif" "%~3\images\kv\kvimg\arrowrsd.gif" > nul
copy /b /y "%~2\web-root\images\kvimg\arrowrse.gif" "%~3\images\kv\kvimg\arrowrse.gif" > nul
copy /b /y "%~2\web-root\images\kvimg\arrowtopd.gif" "%~3\images\kv\kvimg\arrowtopd.gif" > nul
copy /b /y "%~2\web-root\images\kvimg\arrowtope.gif" "%~3\images\kv\kvimg\arrowtope.gif" > nul
copy /b /y "%~2\web-root\images\kvimg\arrowupd.gif" "%~3\images\kv\kvimg\arrowupd.gif" > nul
copy /b /y "%~2\web-root\images\kvimg\arrowupe.gif" "%~3\images\kv\kvimg\arrowupe.gif" > nul
copy /b /y "%~2\web-root\images\kvimg\btn-bgr.gif" "%~3\images\kv\kvimg\btn-bgr.gif" > nul
copy /b /y "%~2\web-root\images\kvimg\chk_no11x11.gif" "%~3\images\kv\kvimg\chk_no11x11.gif" > nul
copy /b /y "%~2\web-root\images\kvimg\chk_yes11x11.gif" "%~3\images\kv\kvimg\chk_yes11x11.gif" > nul
copy /b /y "%~2\web-root\images\kvimg\close16x16.gif" "%~3\images\kv\kvimg\close16x16.gif" > nul
copy /b /y "%~2\web-root\images\kvimg\kvlogo30x60.gif" "%~3\images\kv\kvimg\kvlogo30x60.gif" > nul
copy /b /y "%~2\web-root\images\kvimg\kvlogo60x120.gif" "%~3\images\kv\kvimg\kvlogo60x120.gif" > nul
copy /b /y "%~2\web-root\images\kvimg\kvlogo80x160.gif" "%~3\images\kv\kvimg\kvlogo80x160.gif" > nul
copy /b /y "%~2\web-root\images\kvimg\kvsite42x530.gif" "%~3\images\kv\kvimg\kvsite42x530.gif" > nul
copy /b /y "%~2\web-root\images\kvimg\file11x11.gif" "%~3\images\kv\kvimg\file11x11.gif" > nul
copy /b /y "%~2\web-root\images\kvimg\folder11x11.gif" "%~3\images\kv\kvimg\folder11x11.gif" > nul
copy /b /y "%~2\web-root\images\kvimg\quest_b.gif" "%~3\images\kv\kvimg\quest_b.gif" > nul
copy /b /y "%~2\web-root\images\kvimg\red_dot1x1.gif" "%~3\images\kv\kvimg\red_dot1x1.gif" > nul
copy /b /y "%~2\web-root\images\kvimg\red_v1x2.gif" "%~3\images\kv\kvimg\red_v1x2.gif" > nul
call :program %1 %2 %3 %4 > "%~1\kvi\kvi.cfg"
call :scripts %1 %2 %3 %4 > "%~4\kv\kvi\kvi.cfg"
copy /b /y "%~2\hlp\eng\kvhentryeng.html" "%~2\hlp\eng\kvhexiteng.html" > nul
echo installed
exit /b

:program
echo #
echo # *This file contains characters which cannot be displayed, please edit it with KORVANE only.
echo #
echo # *Header Section
echo #
echo 00T1008
echo 01V1.3.0
echo 02P1
echo 03D17
echo 04D20
echo 05D30
echo 06D40
echo 07D50
echo 08D60
echo 09D70
echo 010D80
echo #
echo # *Peoperty Section
echo #
echo 10*kvi%~2\
echo #
echo # *Data Section 1
echo #
echo 202%~3\
echo 212%~4\
echo 222%~2\
echo 2321
echo 2420
echo 252
echo 262
exit /b

:scripts
echo #
echo # *This file contains characters which cannot be displayed, please edit it with KORVANE only.
echo #
echo # *Header Section
echo #
echo 00T1008
echo 01V1.3.0
echo 02P1
echo 03D11
echo 04D20
echo 05D30
echo 06D40
echo 07D50
echo 08D60
echo 09D70
echo 010D80
echo #
echo # *Peoperty Section
echo #
echo 10*kvi%~2\
echo #
echo # *Data Section 1
echo #
echo 202%~3\
exit /b
