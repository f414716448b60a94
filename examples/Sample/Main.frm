VERSION 5.00
Begin VB.Form frmMain 
   Caption         =   "Sample"
   ClientHeight    =   3195
   ClientWidth     =   4680
   Begin VB.CommandButton cmdFill 
      Caption         =   "&Fill"
      Height          =   375
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   1215
   End
   Begin VB.Label lblTotal 
      BeginProperty Font 
         Name            =   "Arial"
         Size            =   9.75
      EndProperty
      Caption         =   "Total:"
      Height          =   255
      Left            =   1440
      Top             =   180
      Width           =   2775
   End
End
Attribute VB_Name = "frmMain"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Option Explicit

Private WithEvents mCounter As Counter

Private Sub cmdFill_Click()
    Fill 7
    lblTotal.Caption = "Total: " & TotalCount()
End Sub

Private Sub Form_Load()
    Set mCounter = New Counter
End Sub
