# The documents, in the folders where they lead to each other, and what goes into other programs.
set(documentos ${CMAKE_INSTALL_DATAROOTDIR}/doc/vorplex)
install(FILES README.md LEIAME.md SECURITY.md CHANGELOG.md CITATION.cff CONTRIBUTING.md
        DESTINATION ${documentos})
install(DIRECTORY docs DESTINATION ${documentos} PATTERN man EXCLUDE)
install(DIRECTORY examples/fotos DESTINATION ${documentos}/examples)
install(FILES examples/kernel.cfg DESTINATION ${documentos}/examples)
install(FILES share/imagej/vorplex.ijm DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/vorplex/imagej)
install(FILES LICENSE DESTINATION ${documentos} COMPONENT licenca)
