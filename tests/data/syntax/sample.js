#!/usr/bin/env node
// It's a module with "quotes".
import fs, { readFile } from 'node:fs';
import * as path from "node:path";

/**
 * Reads a file.
 * @param {string} name
 */
export async function read(name, options = {}) {
    const url = 'http://example.org/a//b'; let after = 1; // link
    const globs = ['src/**/*.js', "lib/*.mjs", '/*'];
    const text = `file ${name}: "quoted"`;
    if (typeof name !== 'string' || name === undefined) throw new TypeError(`bad`);
    for (const line of text.split(/\r?\n/)) {
        if (line.length > 0xFF || line === null) continue;
        await handle(line, 1_000n, .5e-3, 0b1010, NaN);
    }
    try { return JSON.parse(await readFile(name)); } catch { return null; } finally { delete options.cache; }
}

class Ring extends Array {
    #items = new Map();
    static count = 0;
    get size() { return this.#items.size; }
    set size(value) { super.size = value; }
    *[Symbol.iterator]() { yield* this.#items; }
}

/* don't
   stop */ var done = true, of = 1, set = 2;
switch (done) {
case false: debugger; break;
default: console.log('it\'s', done ?? "none"); /* x */ label: do { } while (0);
}
export default Ring; // the "end
