// Listens to the one event of the library, OutOfMemory of Entry. No operation of the library raises
// it: what is shown here is how a program connects, and that it hears nothing.
//
//   csc Events.cs && Events
using System;
using System.Runtime.InteropServices;
using System.Runtime.InteropServices.ComTypes;

// The dispatch interface __Entry of the type library.
[ComVisible(true), Guid("3855f3be-a6c9-41f0-8086-bbcd84c476dc"),
 InterfaceType(ComInterfaceType.InterfaceIsIDispatch)]
public interface IEntryEvents {
    [DispId(1)]
    void OutOfMemory();
}

[ComVisible(true), ClassInterface(ClassInterfaceType.None)]
public class EntryEvents : IEntryEvents {
    public int Heard { get; private set; }

    public void OutOfMemory() {
        ++Heard;
        Console.WriteLine("An entry is out of memory.");
    }
}

static class Events {
    [STAThread]
    static void Main() {
        Type type = Type.GetTypeFromProgID("NorvoPlayList.Entry", true);
        dynamic entry = Activator.CreateInstance(type);
        EntryEvents events = new EntryEvents();
        IConnectionPoint point;
        Guid identifier = typeof(IEntryEvents).GUID;
        ((IConnectionPointContainer)entry).FindConnectionPoint(ref identifier, out point);
        int cookie;
        point.Advise(events, out cookie);
        entry.EntryType = 3;
        entry.SourceURL = "http://radio.example/live";
        entry.SongName = "Late Radio";
        Console.WriteLine(entry.SongName + ": " + entry.SourceURL);
        point.Unadvise(cookie);
        Console.WriteLine(events.Heard + " events");
    }
}
