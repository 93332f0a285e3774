; The pages. An update does not ask for the folder.

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${PICTURE}"

!define MUI_PAGE_CUSTOMFUNCTION_PRE SkipWhenUpdating
!define MUI_PAGE_CUSTOMFUNCTION_LEAVE ProposeEntry
!define MUI_DIRECTORYPAGE_TEXT_TOP "Murala keeps its list, settings and thumbnails beside the program, so the folder has to be yours to write to. Your pictures stay where they are."
!insertmacro MUI_PAGE_DIRECTORY
Page custom ShowOptions LeaveOptions
!insertmacro MUI_PAGE_INSTFILES
!define MUI_PAGE_CUSTOMFUNCTION_PRE SkipWhenStarted
!define MUI_FINISHPAGE_TITLE "Murala ${VERSION} is installed"
!define MUI_FINISHPAGE_TEXT "You find it in the start menu. To remove it, use Windows' list of installed apps."
!define MUI_FINISHPAGE_RUN "$INSTDIR\Murala.exe"
!define MUI_FINISHPAGE_RUN_TEXT "&Start Murala"
!insertmacro MUI_PAGE_FINISH

UninstPage custom un.ShowRemoval un.LeaveRemoval
!insertmacro MUI_UNPAGE_INSTFILES

!insertmacro MUI_LANGUAGE "English"

Function SkipWhenUpdating
  ${If} $IsUpdate = 1
    Abort
  ${EndIf}
FunctionEnd

Function ShowOptions
  ${If} $IsUpdate = 1
    !insertmacro MUI_HEADER_TEXT "Update to Murala ${VERSION}" "Your list, settings and thumbnails stay as they are."
  ${Else}
    !insertmacro MUI_HEADER_TEXT "Options" "Both can be changed in Murala's configuration, too."
  ${EndIf}
  nsDialogs::Create 1018
  Pop $0
  ${NSD_CreateCheckBox} 0 0 100% 12u "&Start Murala with Windows"
  Pop $Box1
  ${NSD_CreateLabel} 12u 13u 95% 20u "From log-in on it changes the wallpaper on its schedule, and its menu is in the notification area."
  Pop $0
  ${NSD_CreateCheckBox} 0 42u 100% 12u '"&Add to Murala" in Explorer$\'s menu'
  Pop $Box2
  ${NSD_CreateLabel} 12u 55u 95% 20u "It puts the pictures that are selected in Explorer into your library."
  Pop $0
  ${If} $IsUpdate = 1
    ${NSD_CreateLabel} 0 90u 100% 20u "Installed in $INSTDIR. If Murala is running, it is closed and started again."
    Pop $0
    GetDlgItem $0 $HWNDPARENT 3 ; "Back": there is no page before
    ShowWindow $0 ${SW_HIDE}
  ${EndIf}
  ${NSD_SetState} $Box1 $StartsWithWindows
  ${NSD_SetState} $Box2 $IsInExplorer
  nsDialogs::Show
FunctionEnd

Function LeaveOptions
  ${NSD_GetState} $Box1 $StartsWithWindows
  ${NSD_GetState} $Box2 $IsInExplorer
FunctionEnd

; A copy that was closed runs again already, and its window is what the user wants to see.
Function SkipWhenStarted
  ${If} $WasRunning = 1
    Abort
  ${EndIf}
FunctionEnd

Function un.ShowRemoval
  !insertmacro MUI_HEADER_TEXT "Remove Murala" "Your pictures stay where they are."
  nsDialogs::Create 1018
  Pop $0
  ${NSD_CreateLabel} 0 0 100% 24u "This removes Murala from $INSTDIR. If it is running, it is closed first."
  Pop $0
  ${NSD_CreateCheckBox} 0 30u 100% 12u "Remove my &library, too"
  Pop $Box1
  ${NSD_CreateLabel} 12u 43u 95% 30u "That is the list with titles and categories, the settings, the calendar, thumbnails, gradients and effect programs. Without them a later installation begins anew."
  Pop $0
  ${NSD_SetState} $Box1 $Purges
  GetDlgItem $0 $HWNDPARENT 1
  SendMessage $0 ${WM_SETTEXT} 0 "STR:&Remove"
  nsDialogs::Show
FunctionEnd

Function un.LeaveRemoval
  ${NSD_GetState} $Box1 $Purges
FunctionEnd
