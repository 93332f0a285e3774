; What lies outside the folder: the registry's entries and the start menu's. The program writes some of
; them itself (desktop/windows/uShellRegistry.cpp); places and forms are the same.

!define AssociationsChanged 0x08000000

; The entry of all users, if there is one, stays the only one: two would start two copies.
!macro ReadRunValue Root
  ReadRegStr $0 HKLM "${RunKey}" "Murala"
  StrCpy ${Root} HKLM
  ${If} $0 == ""
    ReadRegStr $0 HKCU "${RunKey}" "Murala"
    StrCpy ${Root} HKCU
  ${EndIf}
!macroend

Function ReadEntries
  StrCpy $StartsWithWindows 0
  StrCpy $IsInExplorer 0
  !insertmacro ReadRunValue $1
  ${If} $0 != ""
    StrCpy $StartsWithWindows 1
  ${EndIf}
  ReadRegStr $0 HKCR "SystemFileAssociations\.jpg\Shell\Add to Murala\Command" ""
  ReadRegStr $1 HKCU "Software\Classes\SystemFileAssociations\.jpg\Shell\Add to Murala\Command" ""
  ${If} "$0$1" != ""
    StrCpy $IsInExplorer 1
  ${EndIf}
FunctionEnd

; An entry that applies a wallpaper at the start goes on doing so.
Function WriteRunValue
  !insertmacro ReadRunValue $1
  ${If} $StartsWithWindows = 0
    DeleteRegValue HKCU "${RunKey}" "Murala"
    DeleteRegValue HKLM "${RunKey}" "Murala"
    Return
  ${EndIf}
  StrCpy $2 $0 "" -7
  ${If} $2 != " /apply"
    StrCpy $2 ""
  ${EndIf}
  ${If} $1 == HKLM
    WriteRegStr HKLM "${RunKey}" "Murala" "$INSTDIR\Murala.exe$2"
  ${Else}
    WriteRegStr HKCU "${RunKey}" "Murala" "$INSTDIR\Murala.exe$2"
  ${EndIf}
FunctionEnd

; $1: the command. $0: the verb's key below the classes.
Function WriteVerb
  ReadRegStr $2 HKCR "$0\Command" ""
  ${If} $2 != $1
    WriteRegStr HKCU "Software\Classes\$0\Command" "" $1
  ${EndIf}
  ReadRegStr $2 HKCR $0 "MultiSelectModel"
  ${If} $2 != "Player"
    WriteRegStr HKCU "Software\Classes\$0" "MultiSelectModel" "Player"
  ${EndIf}
FunctionEnd

; $0: the key of the file type, with a divider behind it; empty where the type is not known.
!macro ReadFileType Extension
  ReadRegStr $0 HKCR "${Extension}" ""
  ${If} $0 != ""
    StrCpy $0 "$0\"
  ${EndIf}
!macroend

!macro WriteVerbs Extension
  !insertmacro ReadFileType "${Extension}"
  StrCpy $0 "$0Shell\Add to Murala"
  Call WriteVerb
  StrCpy $0 "SystemFileAssociations\${Extension}\Shell\Add to Murala"
  Call WriteVerb
!macroend

Function WriteExplorerMenu
  ${If} $IsInExplorer = 0
    ExecWait '"$INSTDIR\Murala.exe" /UNINSTALL'
    Return
  ${EndIf}
  StrCpy $1 "$INSTDIR\Murala.exe"
  System::Call 'shlwapi::StrChrW(w r1, i 32) p .r2'
  ${If} $2 <> 0
    StrCpy $1 '"$1"'
  ${EndIf}
  StrCpy $1 '$1 "%1"'
  !insertmacro WriteVerbs ".bmp"
  !insertmacro WriteVerbs ".jpg"
  System::Call 'shell32::SHChangeNotify(i ${AssociationsChanged}, i 0, p 0, p 0)'
FunctionEnd

; The program knows the standard folder only.
Function WriteProgramFile
  ${If} $INSTDIR == "${STANDARD_FOLDER}"
    DeleteRegValue HKCU "${OwnKey}" "InstalledProgram"
  ${Else}
    WriteRegStr HKCU "${OwnKey}" "InstalledProgram" "$INSTDIR\Murala.exe"
  ${EndIf}
FunctionEnd

Function WriteUninstallEntry
  WriteRegStr HKCU "${UninstallKey}" "DisplayName" "Murala"
  WriteRegStr HKCU "${UninstallKey}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UninstallKey}" "DisplayIcon" "$INSTDIR\Murala.exe"
  WriteRegStr HKCU "${UninstallKey}" "Publisher" "The Murala developers"
  WriteRegStr HKCU "${UninstallKey}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${UninstallKey}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${UninstallKey}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${UninstallKey}" "EstimatedSize" ${SIZE_KB}
  WriteRegDWORD HKCU "${UninstallKey}" "NoModify" 1
  WriteRegDWORD HKCU "${UninstallKey}" "NoRepair" 1
FunctionEnd

Function WriteEntries
  Call WriteProgramFile
  Call WriteRunValue
  Call WriteExplorerMenu
  SetOutPath $INSTDIR ; where the shortcut starts the program
  CreateShortCut "$SMPROGRAMS\Murala.lnk" "$INSTDIR\Murala.exe"
  Call WriteUninstallEntry
FunctionEnd

; An entry of another copy, which the user carries about, stays.
Function un.DeleteRunValue
  StrLen $1 "$INSTDIR\Murala.exe"
  ReadRegStr $0 HKCU "${RunKey}" "Murala"
  StrCpy $0 $0 $1
  ${If} $0 == "$INSTDIR\Murala.exe"
    DeleteRegValue HKCU "${RunKey}" "Murala"
  ${EndIf}
  ReadRegStr $0 HKLM "${RunKey}" "Murala"
  StrCpy $0 $0 $1
  ${If} $0 == "$INSTDIR\Murala.exe"
    DeleteRegValue HKLM "${RunKey}" "Murala"
  ${EndIf}
FunctionEnd

; The program removes the verbs; keys that had to be made for them may be left.
!macro DeleteEmptyKeys Extension
  !insertmacro ReadFileType "${Extension}"
  DeleteRegKey /ifempty HKCU "Software\Classes\$0Shell"
  ${If} $0 != ""
    DeleteRegKey /ifempty HKCU "Software\Classes\$0"
  ${EndIf}
  DeleteRegKey /ifempty HKCU "Software\Classes\SystemFileAssociations\${Extension}\Shell"
  DeleteRegKey /ifempty HKCU "Software\Classes\SystemFileAssociations\${Extension}"
  DeleteRegKey /ifempty HKCU "Software\Classes\SystemFileAssociations"
!macroend

Function un.DeleteEntries
  ExecWait '"$INSTDIR\Murala.exe" /UNINSTALL'
  !insertmacro DeleteEmptyKeys ".bmp"
  !insertmacro DeleteEmptyKeys ".jpg"
  Call un.DeleteRunValue
  DeleteRegKey HKCU "${OwnKey}"
  Delete "$SMPROGRAMS\Murala.lnk"
  DeleteRegKey HKCU "${UninstallKey}"
FunctionEnd
