// What ImageJ makes of sets of regions, a line for each region. Argument: rows and columns of the
// picture and the zip file, one set a line.
sets = split(getArgument(), "\n");
for (k = 0; k < sets.length; k++) {
  part = split(sets[k], "\t");
  newImage("x", "8-bit white", parseInt(part[1]), parseInt(part[0]), 1);
  roiManager("reset");
  roiManager("Open", part[2]);
  for (i = 0; i < roiManager("count"); i++) {
    roiManager("select", i);
    List.setMeasurements;
    name = call("ij.plugin.frame.RoiManager.getName", i);
    line = "" + k + "\t" + name + "\t" + selectionType() + "\t" + List.getValue("Area") + "\t" +
           List.getValue("X") + "\t" + List.getValue("Y") + "\t" + List.getValue("Perim.");
    if (selectionType() == 2) {
      getSelectionCoordinates(x, y);
    } else {
      getSelectionBounds(left, top, width, height);
      x = newArray(left, left + width);
      y = newArray(top, top + height);
    }
    for (j = 0; j < x.length; j++) line += "\t" + d2s(x[j], 6) + "\t" + d2s(y[j], 6);
    print(line);
  }
  close();
}
