; The wizard's work as a setup program of the usual kind: a welcome page whose button starts the
; work, and a page that shows it. The files lie beside it as the wizard's do and are not packed.
;   makensis -DOUT=FILE -DPROGRAM=.. -DPRODUCT=.. -DHOME=.. -DSCRIPTS=.. setup.nsi
; Without -DPRODUCT it is the bare program that every such setup starts from.
Unicode true
Target amd64-unicode
SetCompressor /SOLID zlib
!include MUI2.nsh

Name "Korvane"
OutFile "${OUT}"
RequestExecutionLevel admin

!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

!ifndef PRODUCT
Section
SectionEnd
!else

!define SEP1 "${U+000F}"
!define SEP2 "${U+0010}"
!define CRLF "$\r$\n"

!macro Copy FROM TO NAME
  CopyFiles /SILENT "${FROM}\${NAME}" "${TO}\${NAME}"
!macroend

; The lines before the row count and those from there to the data.
!macro Settings FILE ROWS
  FileOpen $0 "${FILE}" w
  FileWrite $0 "#${CRLF}"
  FileWrite $0 "# *This file contains characters which cannot be displayed, please edit it with KORVANE only.${CRLF}"
  FileWrite $0 "#${CRLF}# *Header Section${CRLF}#${CRLF}"
  FileWrite $0 "00${SEP1}T${SEP2}1008${CRLF}01${SEP1}V${SEP2}1.3.0${CRLF}02${SEP1}P${SEP2}1${CRLF}"
  FileWrite $0 "03${SEP1}D1${SEP2}${ROWS}${CRLF}04${SEP1}D2${SEP2}0${CRLF}05${SEP1}D3${SEP2}0${CRLF}"
  FileWrite $0 "06${SEP1}D4${SEP2}0${CRLF}07${SEP1}D5${SEP2}0${CRLF}08${SEP1}D6${SEP2}0${CRLF}"
  FileWrite $0 "09${SEP1}D7${SEP2}0${CRLF}010${SEP1}D8${SEP2}0${CRLF}"
  FileWrite $0 "#${CRLF}# *Peoperty Section${CRLF}#${CRLF}"
  FileWrite $0 "10${SEP1}*kvi${SEP2}${PRODUCT}\${CRLF}"
  FileWrite $0 "#${CRLF}# *Data Section 1${CRLF}#${CRLF}"
  FileWrite $0 "20${SEP1}2${SEP2}${HOME}\${CRLF}"
!macroend

Section
  CreateDirectory "${HOME}\kv"
  CreateDirectory "${HOME}\images"
  CreateDirectory "${HOME}\images\kv"
  CreateDirectory "${HOME}\images\kv\cimg"
  CreateDirectory "${HOME}\images\kv\kvimg"
  CreateDirectory "${SCRIPTS}\kv"
  CreateDirectory "${SCRIPTS}\kv\kvi"

  !define BIN "${PRODUCT}\bin"
  !insertmacro Copy "${BIN}" "${SCRIPTS}\kv" "kv.exe"
  !insertmacro Copy "${BIN}" "${SCRIPTS}\kv" "kvabout.exe"
  !insertmacro Copy "${BIN}" "${SCRIPTS}\kv" "kvcfg.exe"
  !insertmacro Copy "${BIN}" "${SCRIPTS}\kv" "kvclpbd.exe"
  !insertmacro Copy "${BIN}" "${SCRIPTS}\kv" "kvdir.exe"
  !insertmacro Copy "${BIN}" "${SCRIPTS}\kv" "kvfile.exe"
  !insertmacro Copy "${BIN}" "${SCRIPTS}\kv" "kvhlp.exe"
  !insertmacro Copy "${BIN}" "${SCRIPTS}\kv" "kvimg.exe"
  !insertmacro Copy "${BIN}" "${SCRIPTS}\kv" "kvjs.exe"
  !insertmacro Copy "${BIN}" "${SCRIPTS}\kv" "kvlogon.exe"
  !insertmacro Copy "${BIN}" "${SCRIPTS}\kv" "kvwlcm.exe"
  !insertmacro Copy "${BIN}" "${SCRIPTS}\kv" "qtmdb.dll"
  !insertmacro Copy "${BIN}" "${SCRIPTS}\kv" "QTnbwB.dll"

  !define WEB "${PRODUCT}\web-root"
  !insertmacro Copy "${WEB}\kv" "${HOME}\kv" "favicon.ico"
  !insertmacro Copy "${WEB}\kv" "${HOME}\kv" "index.html"
  !insertmacro Copy "${WEB}\kv" "${HOME}\kv" "Default.htm"
  !insertmacro Copy "${WEB}" "${HOME}" "favicon.ico"
  !insertmacro Copy "${WEB}" "${HOME}" "index.html"
  !insertmacro Copy "${WEB}" "${HOME}" "Default.htm"

  !define IMAGES "${WEB}\images\kvimg"
  !define TO_IMAGES "${HOME}\images\kv\kvimg"
  !insertmacro Copy "${IMAGES}" "${TO_IMAGES}" "arrowlsd.gif"
  !insertmacro Copy "${IMAGES}" "${TO_IMAGES}" "arrowlse.gif"
  !insertmacro Copy "${IMAGES}" "${TO_IMAGES}" "arrowrsd.gif"
  !insertmacro Copy "${IMAGES}" "${TO_IMAGES}" "arrowrse.gif"
  !insertmacro Copy "${IMAGES}" "${TO_IMAGES}" "arrowtopd.gif"
  !insertmacro Copy "${IMAGES}" "${TO_IMAGES}" "arrowtope.gif"
  !insertmacro Copy "${IMAGES}" "${TO_IMAGES}" "arrowupd.gif"
  !insertmacro Copy "${IMAGES}" "${TO_IMAGES}" "arrowupe.gif"
  !insertmacro Copy "${IMAGES}" "${TO_IMAGES}" "btn-bgr.gif"
  !insertmacro Copy "${IMAGES}" "${TO_IMAGES}" "chk_no11x11.gif"
  !insertmacro Copy "${IMAGES}" "${TO_IMAGES}" "chk_yes11x11.gif"
  !insertmacro Copy "${IMAGES}" "${TO_IMAGES}" "close16x16.gif"
  !insertmacro Copy "${IMAGES}" "${TO_IMAGES}" "kvlogo30x60.gif"
  !insertmacro Copy "${IMAGES}" "${TO_IMAGES}" "kvlogo60x120.gif"
  !insertmacro Copy "${IMAGES}" "${TO_IMAGES}" "kvlogo80x160.gif"
  !insertmacro Copy "${IMAGES}" "${TO_IMAGES}" "kvsite42x530.gif"
  !insertmacro Copy "${IMAGES}" "${TO_IMAGES}" "file11x11.gif"
  !insertmacro Copy "${IMAGES}" "${TO_IMAGES}" "folder11x11.gif"
  !insertmacro Copy "${IMAGES}" "${TO_IMAGES}" "quest_b.gif"
  !insertmacro Copy "${IMAGES}" "${TO_IMAGES}" "red_dot1x1.gif"
  !insertmacro Copy "${IMAGES}" "${TO_IMAGES}" "red_v1x2.gif"

  !insertmacro Settings "${PROGRAM}\kvi\kvi.cfg" 7
  FileWrite $0 "21${SEP1}2${SEP2}${SCRIPTS}\${CRLF}22${SEP1}2${SEP2}${PRODUCT}\${CRLF}"
  FileWrite $0 "23${SEP1}2${SEP2}1${CRLF}24${SEP1}2${SEP2}0${CRLF}25${SEP1}2${SEP2}${CRLF}26${SEP1}2${SEP2}${CRLF}"
  FileClose $0
  !insertmacro Settings "${SCRIPTS}\kv\kvi\kvi.cfg" 1
  FileClose $0

  CopyFiles /SILENT "${PRODUCT}\hlp\eng\kvhentryeng.html" "${PRODUCT}\hlp\eng\kvhexiteng.html"
SectionEnd
!endif
