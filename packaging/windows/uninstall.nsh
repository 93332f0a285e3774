; The removal: files by their names, never a whole folder of the user's.

Function un.onInit
  Call un.RefuseSecondSetup
  StrCpy $Purges 0
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/PURGE" $1
  ${IfNot} ${Errors}
    StrCpy $Purges 1
  ${EndIf}
FunctionEnd

!macro DeleteFile File
  !if "${File}" != "Murala.default.ini"
    Delete "$INSTDIR\${File}"
  !endif
!macroend

!macro DeleteFolder Folder
  RMDir "$INSTDIR\${Folder}"
!macroend

; With what a saving that was cut off, or a file that could not be read, has left beside it.
!macro DeleteData File
  Delete "$INSTDIR\${File}"
  Delete "$INSTDIR\${File}.new"
  Delete "$INSTDIR\${File}.unreadable*"
!macroend

; The pictures of the library lie elsewhere; samples among them were deleted with the program.
Function un.DeleteLibrary
  !insertmacro DeleteData "Murala.Wallpaper.List"
  !insertmacro DeleteData "Murala.ini"
  Delete "$INSTDIR\Murala.default.ini"
  !insertmacro DeleteData "mucalendar.ini"
  Delete "$INSTDIR\MuralaWallpaper*.bmp"
  Delete "$INSTDIR\GradientBitmap*.bmp"
  Delete "$INSTDIR\Thumbnails\Thumbnail.*.jpg"
  RMDir "$INSTDIR\Thumbnails"
  Delete "$INSTDIR\Plugins\*.*"
  RMDir "$INSTDIR\Plugins"
FunctionEnd

Section un.Murala
  Call un.FreePrograms
  ${If} $0 != ""
    MessageBox MB_OK|MB_ICONSTOP "$0 is in use. Nothing has been removed." /SD IDOK
    SetErrorLevel 2
    Abort
  ${EndIf}
  SetOutPath $TEMP ; a folder that is in use cannot be removed
  Call un.DeleteEntries
  Call un.AreDefaultsChanged
  ${If} $KeepsDefaults = 0
    Delete "$INSTDIR\Murala.default.ini"
  ${EndIf}
  !insertmacro EachFile DeleteFile
  !insertmacro EachFolder DeleteFolder
  ${If} $Purges = 1
    Call un.DeleteLibrary
  ${EndIf}
  Delete "$INSTDIR\uninstall.exe"
  RMDir $INSTDIR
SectionEnd
