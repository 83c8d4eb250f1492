import type { Reader } from './reader';
// Types don't exist at run time.
export interface Shape<T extends object = {}> {
    readonly kind: 'circle' | "square";
    name?: string;
    area(this: Shape<T>): number;
}

type Keys<T> = { [K in keyof T]: T[K] extends infer U ? U : never };
declare module "things" { const version: unique symbol; }
enum Color { Red = 0x01, Green = 1 << 2 }

/* a block
   of comment */
@Component({ selector: 'app' })
export abstract class Base implements Shape {
    private static readonly cache: Map<string, unknown> = new Map();
    constructor(public kind: 'circle', protected override readonly name = `base`) { super(); }
    abstract area(): number;
    get size(): bigint { return 10_000n; }
    async load(url: string = 'http://example.org'): Promise<void | undefined> {
        const data = (await fetch(url)) as unknown as Partial<Base>;
        if (!isBase(data)) return; // it's "wrong"
        const config = { a: 1.5 } satisfies Record<string, number>;
        for (const key of Object.keys(config)) console.log(key!, null, true);
    }
}

function isBase(x: any): x is Base { return typeof x === 'object' && 'kind' in x; }
namespace Inner { export let counter: boolean = false; }
