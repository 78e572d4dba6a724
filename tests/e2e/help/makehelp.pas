{ Makes the help file of the end-to-end tests; README.md beside it says how. }
program makehelp;
{$mode objfpc}{$H+}
uses Classes, chmwriter;

type
  TPages = class
    function Load(const DataName: String; out PathInChm: String; out FileName: String;
      var Stream: TStream): Boolean;
  end;

function TPages.Load(const DataName: String; out PathInChm: String; out FileName: String;
  var Stream: TStream): Boolean;
begin
  PathInChm := '/';
  FileName := DataName;
  TMemoryStream(Stream).LoadFromFile(DataName);
  Stream.Position := 0;
  Result := False; { not the last one }
end;

var
  Target: TFileStream;
  Writer: TChmWriter;
  Pages: TPages;
begin
  Target := TFileStream.Create('Kunden.chm', fmCreate);
  Writer := TChmWriter.Create(Target, False);
  Pages := TPages.Create;
  Writer.OnGetFileData := @Pages.Load;
  Writer.FilesToCompress.Add('start.html');
  Writer.FilesToCompress.Add('fehler.html');
  Writer.Title := 'Hilfe zur Kundenverwaltung';
  Writer.DefaultPage := 'start.html';
  Writer.AddContext(1000, 'fehler.html');
  Writer.AddContext(1001, 'start.html');
  Writer.Execute;
  Writer.Free;
  Pages.Free;
  Target.Free;
end.
