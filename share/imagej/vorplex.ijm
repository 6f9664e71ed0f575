// Finds and measures the grains of the picture in front with vorplex-lote, which must be installed:
// their outlines go to the ROI Manager, after those that are there, and their table to a window.
//
// Asks for a kernel.cfg and whether the grains are bright; a macro or a batch gives both as argument,
// "KERNEL.CFG" or "KERNEL.CFG<tab>bright". The scale is that of the picture (Analyze > Set Scale).

function scaleOption() {
  getPixelSize(unit, width, height);
  if (unit == "inch" || unit == "inches") unit = "in";
  if (unit == getInfo("micrometer.abbreviation") || unit == "micron" || unit == "microns") unit = "um";
  if (unit == fromCharCode(181) + "m") unit = "um";
  known = "|um|mm|cm|m|in|";
  if (indexOf(known, "|" + unit + "|") < 0 || width != height) return "";
  return d2s(width, -9) + unit;
}

argument = getArgument();
if (argument == "") {
  configuration = File.openDialog("kernel.cfg");
  bright = getBoolean("Are the grains brighter than the ground around them?");
} else {
  parts = split(argument, "\t");
  configuration = parts[0];
  bright = endsWith(argument, "\tbright");
}
if (nImages == 0) exit("Open a picture first.");

folder = getDirectory("temp") + "vorplex-" + d2s(getTime(), 0) + File.separator;
File.makeDirectory(folder);
scale = scaleOption();
run("Duplicate...", "title=photograph");
if (bright) run("Invert");
saveAs("PNG", folder + "photograph.png");
close();

// Without a scale, what holds anyway.
option = "--grandeza";
value = "equivalente";
if (scale != "") {
  option = "--escala";
  value = scale;
}
said = exec("vorplex-lote", "--idioma", "en", "--saida", folder + "results", option, value,
            configuration, folder + "photograph.png");
results = folder + "results" + File.separator + "photograph" + File.separator;
if (!File.exists(results + "graos.csv")) exit("vorplex-lote failed:\n" + said);
if (File.exists(results + "rois.zip")) {
  roiManager("Open", results + "rois.zip");
  roiManager("Show All");
}
Table.open(results + "graos.csv");
