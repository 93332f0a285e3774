; The pages. An update does not ask for the folder.

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING

!define MUI_PAGE_CUSTOMFUNCTION_PRE SkipWhenUpdating
!define MUI_DIRECTORYPAGE_TEXT_TOP "Murala keeps its list, settings and thumbnails beside the program, so the folder has to be yours to write to. Your pictures stay where they are."
!insertmacro MUI_PAGE_DIRECTORY
Page custom ShowOptions LeaveOptions
!insertmacro MUI_PAGE_INSTFILES
!define MUI_PAGE_CUSTOMFUNCTION_SHOW ShowFinish
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
  ${NSD_CreateLabel} 12u 13u 95% 20u "It waits in the notification area, changes the wallpaper on a schedule if you want that, and has its menu at hand."
  Pop $0
  ${NSD_CreateCheckBox} 0 42u 100% 12u '"&Add to Murala" in Explorer$\'s menu'
  Pop $Box2
  ${NSD_CreateLabel} 12u 55u 95% 20u "Select pictures in Explorer, click them with the right button, and they are in your library."
  Pop $0
  ${If} $IsUpdate = 1
    ${NSD_CreateLabel} 0 90u 100% 20u "Installed in $INSTDIR. A copy of Murala that runs is closed and started again."
    Pop $0
  ${EndIf}
  ${NSD_SetState} $Box1 $StartsWithWindows
  ${NSD_SetState} $Box2 $IsInExplorer
  nsDialogs::Show
FunctionEnd

Function LeaveOptions
  ${NSD_GetState} $Box1 $StartsWithWindows
  ${NSD_GetState} $Box2 $IsInExplorer
FunctionEnd

; A copy that was closed runs again already.
Function ShowFinish
  ${If} $WasRunning = 1
    ${NSD_Uncheck} $mui.FinishPage.Run
    ShowWindow $mui.FinishPage.Run ${SW_HIDE}
  ${EndIf}
FunctionEnd

Function un.ShowRemoval
  !insertmacro MUI_HEADER_TEXT "Remove Murala" "Your pictures stay where they are."
  nsDialogs::Create 1018
  Pop $0
  ${NSD_CreateLabel} 0 0 100% 24u "Murala is removed from $INSTDIR. A copy that runs is closed."
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
