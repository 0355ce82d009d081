' A script as host: hands its session to the component, lets the user price a piece and save it, and reads the price.
' The host defines OpenSession, which returns its session.
Dim session, vmora, proposal

Set session = OpenSession()
Set vmora = CreateObject("VELMORA.VMORA")
Set vmora.MyBd = session

vmora.jShow  ' returns when the user has closed the form

Set proposal = session.Connection.Execute("select top 1 DPI_Id, DPI_ImpTP, DPI_Unidades from DPI order by DPI_Id desc", , -1)
If Not proposal.EOF Then
    WScript.Echo "Proposal " & proposal.Fields.Item("DPI_Id").Value & ": " & _
                 proposal.Fields.Item("DPI_Unidades").Value & " pieces at " & proposal.Fields.Item("DPI_ImpTP").Value
End If

Set vmora.MyBd = Nothing
Set vmora = Nothing
