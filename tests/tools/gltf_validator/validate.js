// Runs the glTF reference validator on each file named and prints, per
// file, one line "FILE: E errors, W warnings" and then one line per error
// ("  CODE POINTER: message"). Exits 0 when every file could be validated,
// whatever it held; 1 when one could not be read or parsed at all.
'use strict';
const fs = require('fs');
const path = require('path');
const validator = require('gltf-validator');

async function validate(file) {
  const report = await validator.validateBytes(new Uint8Array(fs.readFileSync(file)), {
    uri: path.basename(file),
    maxIssues: 0,
    writeTimestamp: false,
    // Embedded data only: a reference to anything outside is itself a fault.
    externalResourceFunction: (uri) => Promise.reject(new Error('external resource ' + uri)),
  });
  const issues = report.issues;
  console.log(`${file}: ${issues.numErrors} errors, ${issues.numWarnings} warnings`);
  for (const message of issues.messages) {
    if (message.severity === 0) console.log(`  ${message.code} ${message.pointer || ''}: ${message.message}`);
  }
}

(async () => {
  let failed = false;
  for (const file of process.argv.slice(2)) {
    try {
      await validate(file);
    } catch (error) {
      console.log(`${file}: not validated: ${error}`);
      failed = true;
    }
  }
  process.exit(failed ? 1 : 0);
})();
