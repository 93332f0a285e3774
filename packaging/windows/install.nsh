; The installation. Until a new file is put in place nothing of what was there has changed; the programs
; come last.

!define ReplaceExisting 1

; A file could not be written after all.
Function .onInstFailed
  Call DeleteAside
FunctionEnd

; In a folder that others may write to it may be a link to where nothing is to be deleted.
Function EmptyAside
  SetOutPath $TEMP ; a folder that is in use cannot be removed
  System::Call 'kernel32::GetFileAttributesW(w "${Aside}") i .r0'
  IntOp $0 $0 & ${ReparsePoint}
  ${If} $0 = 0
    RMDir /r "${Aside}"
  ${Else}
    RMDir "${Aside}"
  ${EndIf}
FunctionEnd

Function DeleteAside
  Call EmptyAside
  ${If} $IsFolderNew = 1
    RMDir $INSTDIR
  ${EndIf}
FunctionEnd

Function .onInit
  ${IfNot} ${AtLeastBuild} 18362
    MessageBox MB_OK|MB_ICONSTOP "Murala needs Windows 10, version 1903, 64 bits, or a later Windows." /SD IDOK
    SetErrorLevel 2
    Quit
  ${EndIf}
  Call RefuseSecondSetup
  Call ReadUserSid
  Call ChooseFolder
  Call ReadEntries
  Call ReadSwitches
FunctionEnd

; Who picks a folder has Explorer's entry for it, unless the options say no.
Function ProposeEntry
  ${If} $IsUpdate = 0
  ${AndIf} $INSTDIR != "${STANDARD_FOLDER}"
    StrCpy $IsInExplorer 1
  ${EndIf}
FunctionEnd

; For installations without pages.
Function ReadSwitches
  ${If} ${Silent}
    Call ProposeEntry
  ${EndIf}
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/STARTUP" $1
  ${IfNot} ${Errors}
    StrCpy $StartsWithWindows 1
  ${EndIf}
  ClearErrors
  ${GetOptions} $0 "/EXPLORER" $1
  ${IfNot} ${Errors}
    StrCpy $IsInExplorer 1
  ${EndIf}
FunctionEnd

; $R9: what to say.
Function GiveUp
  Call DeleteAside
  ${If} $WasRunning = 1
    Exec '"$INSTDIR\Murala.exe"'
  ${EndIf}
  MessageBox MB_OK|MB_ICONSTOP $R9 /SD IDOK
  SetErrorLevel 2
  Abort
FunctionEnd

; Where the standard folder cannot be had, the user's own programs' folder can.
Function FindFolder
  Call PrepareFolder
  ${If} $0 <> 0
  ${AndIf} $INSTDIR == "${STANDARD_FOLDER}"
    System::Call 'kernel32::FormatMessageW(i 0x1200, p 0, i r0, i 0, w .r1, i ${NSIS_MAX_STRLEN}, p 0)'
    ${If} ${Cmd} `MessageBox MB_OKCANCEL|MB_ICONQUESTION "The folder $INSTDIR cannot be made for you: $1$\r$\nInstall into ${OwnFolder} instead?" /SD IDOK IDOK`
      StrCpy $INSTDIR "${OwnFolder}"
      Call PrepareFolder
    ${EndIf}
  ${EndIf}
  ${If} $0 <> 0
    StrCpy $R9 "The folder $INSTDIR could not be made. Nothing has been installed."
    Call GiveUp
  ${EndIf}
FunctionEnd

!macro ExtractFile File
  File "/oname=${Aside}\${File}" "${TREE}\${File}"
!macroend

!macro MakeFolderAside Folder
  CreateDirectory "${Aside}\${Folder}"
!macroend

; Whether the disk has room for all files beside the old ones: $1.
Function HasRoom
  System::Call 'kernel32::GetDiskFreeSpaceExW(w "$INSTDIR", *l .r1, p 0, p 0) i .r2'
  ${If} $2 = 0
    StrCpy $1 1 ; the system does not know
    Return
  ${EndIf}
  System::Int64Op $1 / 1024
  Pop $1
  System::Int64Op $1 > ${SIZE_KB}
  Pop $1
FunctionEnd

Function ExtractAside
  Call EmptyAside ; of a setup that was killed
  Call HasRoom
  ${If} $1 = 0
    StrCpy $R9 "The disk of $INSTDIR has no room for Murala. Nothing has been changed."
    Call GiveUp
  ${EndIf}
  ClearErrors
  CreateDirectory "${Aside}"
  ${If} ${Errors}
    StrCpy $R9 "You may not write into the folder $INSTDIR. Nothing has been installed."
    Call GiveUp
  ${EndIf}
  !insertmacro EachFolder MakeFolderAside
  !insertmacro EachFile ExtractFile
FunctionEnd

; Files of the version that is there which this one no longer has.
Function DeleteGoneFiles
  FileOpen $0 "$INSTDIR\Setup.files" r
  ${Do}
    ClearErrors
    FileRead $0 $1
    ${If} ${Errors}
      ${ExitDo}
    ${EndIf}
    StrCpy $1 $1 -2 ; the line's end
    ${IfNot} ${FileExists} "${Aside}\$1"
      Delete "$INSTDIR\$1"
    ${EndIf}
  ${Loop}
  FileClose $0
FunctionEnd

; $0: a file's name below $INSTDIR. A virus scanner may hold the old file for a moment.
Function PutInPlace
  ${For} $1 1 50
    System::Call 'kernel32::MoveFileExW(w "${Aside}\$0", w "$INSTDIR\$0", i ${ReplaceExisting}) i .r2'
    ${If} $2 <> 0
      Return
    ${EndIf}
    Sleep 100
  ${Next}
  StrCpy $R9 "$INSTDIR\$0 could not be replaced. Close the programs that use it and start the setup again."
  Call GiveUp
FunctionEnd

!macro PlaceFile File
  !if "${File}" == "Murala.default.ini"
    ${If} $KeepsDefaults = 0
  !endif
  StrCpy $0 "${File}"
  Call PutInPlace
  !if "${File}" == "Murala.default.ini"
    ${EndIf}
  !endif
!macroend

!macro MakeFolderInPlace Folder
  CreateDirectory "$INSTDIR\${Folder}"
!macroend

Section
  AddSize ${SIZE_KB}
  Call FindFolder
  Call ExtractAside
  Call FreePrograms
  ${If} $0 != ""
    StrCpy $R9 "$0 is in use. Nothing has been changed."
    Call GiveUp
  ${EndIf}
  Call AreDefaultsChanged
  Call DeleteGoneFiles
  !insertmacro EachFolder MakeFolderInPlace
  !insertmacro EachFile PlaceFile
  WriteUninstaller "$INSTDIR\uninstall.exe"
  Call EmptyAside
  Call WriteEntries
  ${If} $WasRunning = 1
    Exec '"$INSTDIR\Murala.exe"'
  ${EndIf}
SectionEnd
