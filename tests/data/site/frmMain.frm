VERSION 5.00
Begin VB.Form frmMain
   Caption = "Main"
   Begin VB.CommandButton cmdGo
      Caption = "Go"
   End
End
Attribute VB_Name = "frmMain"
Private Sub cmdGo_Click()
    cmdGo.Caption = CStr(gCount)
    Report
End Sub
