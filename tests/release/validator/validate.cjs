// Validates bills of materials by the schema of CycloneDX:
//   node validate.cjs MODULES BILL...
// MODULES is where npm has put the validator. Ends with 1 when a bill is not valid.
const fs = require('fs');
const path = require('path');

const library = path.resolve(process.argv[2], '@cyclonedx', 'cyclonedx-library');
const { Validation, Spec } = require(library);

async function main() {
  const validator = new Validation.JsonStrictValidator(Spec.Version.v1dot6);
  for (const file of process.argv.slice(3)) {
    const problems = await validator.validate(fs.readFileSync(file, 'utf8'));
    if (problems !== null) {
      console.log(file, JSON.stringify(problems, null, 2));
      process.exitCode = 1;
    }
  }
}

main();
