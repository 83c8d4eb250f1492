package org.example.sample;

import java.util.List;

/**
 * A shape; it's "sealed".
 * @since 21
 */
@FunctionalInterface
public sealed interface Shape permits Circle, Square {
    double area();
}

record Circle(double radius) implements Shape {
    private static final String URL = "http://example.org/*.html"; int after;
    private static final long MASK = 0xFFFF_0000L, BITS = 0b1010, OCTAL = 0777;

    @Override
    public double area() { return Math.PI * radius * radius; } // pi r^2

    /* package */ non-sealed class Inner { }

    static String describe(Object o) throws IllegalArgumentException {
        char quote = '\'', tab = '\t', uni = '\u00e9';
        var text = """
            not one line""";
        return switch (o) {
            case Circle c when c.radius > 1.5e3f -> "big \"circle\"";
            case null, default -> { yield "none"; }
        };
    }

    synchronized void run(int... values) {
        for (final int value : values) {
            if (value instanceof Integer) continue; // don't
            assert value >= 0 : "negative";
        }
        try { throw new Error(); } catch (Error e) { /* ignored
            on purpose */ } finally { super.toString(); }
        boolean done = true || false; Object nothing = null;
    }
}
