// The sample files of the source tree: what reads whole has nothing that is marked, and what does not has.
// The variable ORVIL_SOURCE names the root of the tree; it is the folder above editors otherwise.
import assert from "node:assert/strict";
import fs from "node:fs";
import path from "node:path";
import test from "node:test";
import { fileURLToPath } from "node:url";

import { highlight } from "./highlight.mjs";

const root = process.env.ORVIL_SOURCE ?? path.join(path.dirname(fileURLToPath(import.meta.url)), "../../..");
const samples = path.join(root, "examples/data");

async function marked(text) {
  const pieces = await highlight(text);
  return pieces.filter((piece) => piece.scopes.some((scope) => scope.startsWith("invalid"))).map((piece) => piece.text);
}

const names = fs.readdirSync(samples).filter((name) => name.endsWith(".cfg"));

test("there are samples", () => assert.ok(names.length >= 8));

for (const name of names) {
  test(`${name} is highlighted as it reads`, async () => {
    const found = await marked(fs.readFileSync(path.join(samples, name), "latin1"));
    assert.deepEqual(found, name === "broken.cfg" ? ["Height", ";"] : []);
  });
}

test("names of the letters a to f are marked, and what stands behind them", async () => {
  const text = fs.readFileSync(path.join(root, "tests/data/tokens/input_letters.txt"), "latin1");
  assert.deepEqual(await marked(text), ["a", "=", ";", "Face", "{", "}", "Add", "{", "}"]);
});

// The kind of each token, by the scope that it has here.
const kindOfScope = [
  [/^comment/, null],
  [/^constant\.numeric\.decimal/, "Decimal"],
  [/^constant\.numeric\.hexadecimal/, "HexaDecimal"],
  [/^constant\.numeric\.double/, "Double"],
  [/^constant\.(other\.symbol|language)/, "Symbol"],
  [/^punctuation\.definition\.string/, null],
  [/^(string\.quoted|constant\.character|invalid\.illegal\.quote)/, "String"],
  [/^meta\.preprocessor|^keyword\.control|^string\.unquoted/, "Preprocesser"],
  [/^(variable|entity)/, null],
  [/^(punctuation|keyword\.operator)/, "<<MetaChar>>"],
];

function kindOf(piece) {
  const scope = piece.scopes.at(-1) ?? "";
  const row = kindOfScope.find(([pattern]) => pattern.test(scope));
  assert.ok(row !== undefined, `"${piece.text}" has a scope that is known: ${piece.scopes}`);
  return row[1];
}

// The kinds of the tokens in the order of the file; the pieces of one string or preprocessor line count once.
async function kindsHere(text) {
  const kinds = [];
  let before = {};
  for (const piece of await highlight(text)) {
    if (piece.text === "") continue;
    const kind = kindOf(piece);
    const goesOn =
      kind === before.kind && (kind === "String" || (kind === "Preprocesser" && piece.line === before.line));
    if (kind !== null && !goesOn) kinds.push(kind);
    before = { kind, line: piece.line };
  }
  return kinds;
}

function kindsOfDump(dump) {
  return [...dump.matchAll(/^Token\[\*\]-(\S+) </gm)].map((match) => match[1]);
}

// The trees that the library's own tests expect of these files. Names of forms are no tokens of their own there.
for (const name of ["sample", "assignments", "nesting", "values", "separators", "escapes", "line_ends", "comments", "number_signs"]) {
  test(`the tokens of input_${name} have the kinds that they read into`, async () => {
    const file = (stem) => fs.readFileSync(path.join(root, `tests/data/tokens/${stem}_${name}.txt`), "latin1");
    assert.deepEqual(await kindsHere(file("input")), kindsOfDump(file("dump")));
  });
}
