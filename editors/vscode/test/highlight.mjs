// Runs the grammars as the editor does.
import fs from "node:fs";
import { createRequire } from "node:module";
import path from "node:path";
import { fileURLToPath } from "node:url";

const require = createRequire(import.meta.url);
const oniguruma = require("vscode-oniguruma");
const textmate = require("vscode-textmate");
const extension = path.join(path.dirname(fileURLToPath(import.meta.url)), "..");

export const manifest = JSON.parse(fs.readFileSync(path.join(extension, "package.json"), "utf8"));

function readGrammar(scopeName) {
  const entry = manifest.contributes.grammars.find((grammar) => grammar.scopeName === scopeName);
  if (entry === undefined) return null;
  const file = path.join(extension, entry.path);
  return textmate.parseRawGrammar(fs.readFileSync(file, "utf8"), file);
}

const wasm = fs.readFileSync(require.resolve("vscode-oniguruma/release/onig.wasm"));
await oniguruma.loadWASM(wasm.buffer.slice(wasm.byteOffset, wasm.byteOffset + wasm.byteLength));
const registry = new textmate.Registry({
  onigLib: Promise.resolve({
    createOnigScanner: (patterns) => new oniguruma.OnigScanner(patterns),
    createOnigString: (text) => new oniguruma.OnigString(text),
  }),
  loadGrammar: async (scopeName) => readGrammar(scopeName),
});

// The pieces of a text with their scopes, the outermost of which, the grammar's own, is left out. Pieces of blanks are
// left out too, unless they have a scope of their own.
export async function highlight(text, scopeName = "source.orvil") {
  const grammar = await registry.loadGrammar(scopeName);
  const pieces = [];
  let state = textmate.INITIAL;
  for (const [number, line] of text.split(/\r\n|\r|\n/).entries()) {
    const result = grammar.tokenizeLine(line, state);
    for (const token of result.tokens) {
      const piece = line.substring(token.startIndex, token.endIndex);
      pieces.push({ text: piece, scopes: token.scopes.slice(1), line: number });
    }
    state = result.ruleStack;
  }
  return pieces.filter((piece) => piece.text.trim() !== "" || /string|comment/.test(piece.scopes.join(" ")));
}
