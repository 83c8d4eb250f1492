#nullable enable
using System;
using System.Collections.Generic;
using static System.Math;

namespace Moorfield.Sample;

#region Records
/// <summary>A point; it's immutable.</summary>
public sealed record Point(int X, int Y);
#endregion

/* Old style
   comment with "quotes" and class */
public partial class Ring<T> where T : class, new()
{
    private readonly List<T?> items = new();
    public required string Name { get; init; } = "http://example.org"; // link
    public int Count { get => items.Count; private set; }
    public event EventHandler? Changed;

    public async IAsyncEnumerable<T> ReadAsync(string path, [EnumeratorCancellation] CancellationToken token = default)
    {
        var text = $"Read {path}: {Count:D3}\n";
        var verbatim = @"C:\temp\""quoted"""; var next = 1_000.5m;
        var raw = """He said "hi".""";
        char tab = '\t', quote = '\'', letter = 'x';
        await foreach (var item in Source(path).WithCancellation(token))
        {
            if (item is { Length: > 0x10 } and not null) yield return item;
            else if (item is null or "") continue;
        }
        var even = from n in numbers where n % 2 == 0 orderby n descending select n;
        lock (this) { unchecked { total += 0b1010_0001; } }
        throw new InvalidOperationException(nameof(path));
    }

    public static bool operator ==(Ring<T> a, Ring<T> b) => ReferenceEquals(a, b);
    int get = 1, value = 2; // names, here
    string after = ""; /* one line */ string last;
}
