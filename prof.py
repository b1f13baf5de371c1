import re
src=open('/tmp/wt/scripts4/script/templates/Extract_Tags_By_Attribute.vbs').read()
pat=src[src.index('	attributes = "'):src.index('	Set tokens =')]
pre='''Function Main ( text, url )
Dim parts, name, closing, current, token, count, attributes, tags, endedByNext, endsBefore, endsItself, tokens, isEnd, d, openOnes
'''+pat
steps={
'execute':'Set tokens = tags.Execute(text)\n',
'foreach':'Set tokens = tags.Execute(text)\nFor Each token In tokens\nNext\n',
'submatches':'Set tokens = tags.Execute(text)\nFor Each token In tokens\nSet parts = token.SubMatches\nNext\n',
'one':'Set tokens = tags.Execute(text)\nFor Each token In tokens\nSet parts = token.SubMatches\nname = parts(0)\nNext\n',
'four':'Set tokens = tags.Execute(text)\nFor Each token In tokens\nSet parts = token.SubMatches\nname = parts(0) & parts(1) & parts(3) & parts(5)\nNext\n',
'lcase':'Set tokens = tags.Execute(text)\nFor Each token In tokens\nSet parts = token.SubMatches\nname = LCase(parts(0) & parts(1) & parts(3) & parts(5))\nNext\n',
'value':'Set tokens = tags.Execute(text)\nFor Each token In tokens\nname = token\nNext\n',
'valuemid':'Set tokens = tags.Execute(text)\nFor Each token In tokens\nname = LCase(Mid(token,2,1))\nNext\n',
'first':'Set tokens = tags.Execute(text)\nFor Each token In tokens\nname = token.FirstIndex\nNext\n',
'dict':'Set openOnes = CreateObject("Scripting.Dictionary")\nSet tokens = tags.Execute(text)\nFor Each token In tokens\nname = openOnes("a")\nNext\n',
'dictset':'Set openOnes = CreateObject("Scripting.Dictionary")\nSet tokens = tags.Execute(text)\nFor Each token In tokens\nopenOnes("a") = 1\nNext\n',
'instr':'endedByNext=" li dd dt option optgroup td th tr thead tbody p "\nSet tokens = tags.Execute(text)\nFor Each token In tokens\nIf InStr(endedByNext, " " & name & " ") > 0 Then count = 1\nNext\n',
'add5':'Set tokens = tags.Execute(text)\nFor Each token In tokens\ncount = count + 1\ncount = count + 1\ncount = count + 1\ncount = count + 1\ncount = count + 1\nNext\n',
'for33':'For count = 1 to 33333\nNext\n',
'for33add5':'Dim i\nFor i = 1 to 33333\ncount = count + 1\ncount = count + 1\ncount = count + 1\ncount = count + 1\ncount = count + 1\nNext\n',
'arr5':'Dim i, a\nReDim a(33333)\nFor i = 1 to 33333\na(i)=i\na(i)=i\na(i)=i\na(i)=i\na(i)=i\nNext\n',
'replace':'count=Len(tags.Replace(text,"|$2$4$6"))\n',
'split':'tokens=Split(text, "<")\n',
'split2':'tokens=Split(text, "<")\nDim i\nFor Each i in tokens\nNext\n',
}
for k,v in steps.items():
    open(f'p_{k}.vbs','w').write(pre+v+'Main = "" & count\nEnd Function\n')
