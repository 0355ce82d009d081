' A script as host: sets the session in both ways, calls each member, reads errors, drops two instances in either order.
' Its findings are written to the file named as its argument, the last line being "end".
Option Explicit

Dim findings
Set findings = CreateObject("Scripting.FileSystemObject").CreateTextFile(WScript.Arguments(0), True, False)

Sub Note(text)
    findings.WriteLine text
End Sub

' A connection whose statements fail with a number of their own.
Class RefusingConnection
    Public Number
    Public Function Execute(sql, affected, options)
        Err.Raise Number, "Host", "refused"
    End Function
End Class

Class Session
    Public Connection
    Public IdUsuario
End Class

Function SessionWith(number)
    Dim made
    Set made = New Session
    Set made.Connection = New RefusingConnection
    made.Connection.Number = number
    made.IdUsuario = 7
    Set SessionWith = made
End Function

' The number of an error as the language counts it.
Function Told()
    Told = CStr(Err.Number)
    Err.Clear
End Function

On Error Resume Next

Dim vmora, session, given, number, order
Set vmora = CreateObject("VELMORA.VMORA")
Note "create " & Told()

vmora.jShow
Note "jShow without session " & Err.Source & " " & Told()
vmora.jShowParametros
Note "jShowParametros without session " & Told()
vmora.jShowSeguimiento
Note "jShowSeguimiento without session " & Told()
number = 1
vmora.jShowPropuesta number
Note "jShowPropuesta without session " & Told()

vmora.bExportReport = True
Note "bExportReport " & CStr(CInt(vmora.bExportReport)) & " " & Told()

Set session = SessionWith(1001)
Set vmora.MyBd = session
Note "MyBd by Set " & Told()
Set given = vmora.MyBd
Note "MyBd is given back " & CStr(given Is session) & " " & CStr(given.IdUsuario) & " " & Told()
vmora.jShow
Note "jShow refused " & Told()

vmora.MyBd = SessionWith(1002)
Note "MyBd without Set " & Told()
vmora.jShowSeguimiento
Note "jShowSeguimiento refused " & Told()
vmora.jShowParametros
Note "jShowParametros refused " & Told()
number = 5
vmora.jShowPropuesta number
Note "jShowPropuesta refused " & Told() & " " & CStr(number)

number = 0
vmora.jShowPropuesta number
Note "jShowPropuesta 0 " & Told()
number = "12"
order = False
vmora.jPrintPropuesta number, order
Note "jPrintPropuesta " & Told() & " " & number & " " & CStr(CInt(order))

vmora.jShowPropuesta "x"
Note "no number " & Told()
vmora.jPrintPropuesta 1
Note "an argument too few " & Told()
vmora.jLoad 1
Note "no such member " & Told()
vmora.MyBd = 5
Note "no object " & Told()

Set vmora.MyBd = Nothing
Note "MyBd to Nothing " & Told()
vmora.jShow
Note "jShow without session again " & Told()

' Two instances: the last one serves all operations, also when it has gone.
Dim one, other
Set one = CreateObject("VELMORA.VMORA")
Set other = CreateObject("VELMORA.VMORA")
Set one.MyBd = SessionWith(1003)
Set other.MyBd = SessionWith(1004)
Set other = Nothing
one.jShow
Note "the last one has gone " & Told()
Set other = CreateObject("VELMORA.VMORA")
Set other.MyBd = SessionWith(1005)
Set one = Nothing
other.jShow
Note "the first one has gone " & Told()
Set other = Nothing
Set vmora = Nothing

' The script ends with an instance that holds a session of it.
Set vmora = CreateObject("VELMORA.VMORA")
Set vmora.MyBd = SessionWith(1006)
Note "end"
findings.Close
